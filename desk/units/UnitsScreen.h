// The screen on which areas and units are added, changed and deleted.
#pragma once

#include "desk/files/UnitsFile.h"
#include "desk/kit/Worksheet.h"

namespace metrisk {

/// Every edit goes to the file at once. The lists of the units move together: a row is one unit.
class UnitsRevision final : public Worksheet {
  public:
    UnitsRevision(Session& session, FileChooser& chooser);

    ListBox List0{*this, "List0", "The measurement areas of the database"};
    ListBox List3{*this, "List3", "Group by which the units are sorted"};
    ListBox List1{*this, "List1", "Units of the measurement area"};
    ListBox List2{*this, "List2", "Size of the unit in primary units"};
    ListBox List4{*this, "List4", "What the unit is called in full"};
    TextBox MeasAreaBox{*this, "MeasAreaBox", "Measurement area, at most 120 characters", Holds::Words};
    TextBox txt_PrimaryUnits{*this, "txt_PrimaryUnits",
                             "The unit that all others of the area are multiples of; typed for a new area",
                             Holds::Words};
    TextBox UnitsBox{*this, "UnitsBox", "Symbol of the unit, at most 80 characters", Holds::Words};
    TextBox MultipliersBox{
        *this, "MultipliersBox",
        "Size of the unit in primary units, above 0: a thousandth has 0.001; empty means 1"};
    TextBox txt_UnitsGroup{*this, "txt_UnitsGroup", "Units are sorted by this first, at most 10 characters",
                           Holds::Words};
    TextBox txt_Description{*this, "txt_Description",
                            "What the unit is called in full, at most 255 characters", Holds::Words};
    PushButton cmd_Add{*this, "cmd_Add", "Add", "Add what the boxes define"};
    PushButton cmd_Update{*this, "cmd_Update", "Update", "Change what is selected to what the boxes define"};
    PushButton cmd_Delete{*this, "cmd_Delete", "Delete", "Delete what is selected"};
    Label lbl_Database{*this, "lbl_Database", "", "The file of the database in use"};

    void begin() override;
    void refresh() override;

  private:
    enum class Focus { Area, Units };

    void bindBoxes();
    std::vector<MenuItem> databaseItems();
    std::vector<MenuItem> editItems();

    void Add();
    void Update();
    void Delete();
    void NewDatabase();

    void addArea(double multiplier);
    void addUnit(double multiplier);
    void updateArea();
    void updateUnit(double multiplier);
    void deleteArea();
    void deleteUnit();

    /// Trims the boxes and tests them; the multiplier, or none if the user has been told.
    std::optional<double> checkedMultiplier(bool withPrimary);
    bool hasIllegalCharacter(const std::string& text, const char* where);
    /// The unit in the boxes. An empty symbol stands for parts per million.
    MeasurementUnit typedUnit(double multiplier) const;

    /// Read the lists anew and select the area or unit of that key, or the first.
    void readAreas(std::int64_t selected = 0);
    void readUnits(std::int64_t selected = 0);
    void selectArea(int row);
    void selectUnit(int row);
    void FindPrimaryUnit();
    void focusOn(Focus focus);
    void clearEditing() {
        EditingArea_ = EditingUnit_ = false;
        for (OfArea& entry : ofArea_) entry.typed = false;
    }

    Session& session_;
    UnitsFile units_;
    std::vector<MeasurementArea> areas_;
    std::vector<MeasurementUnit> shown_;
    std::int64_t SelectedAreaKey_ = 0;
    std::int64_t SelectedUnitKey_ = 0;
    /// What is shown of the area selected, until it is typed for another.
    struct OfArea {
        TextBox& box;
        bool typed = false;
    };
    std::array<OfArea, 3> ofArea_{{{txt_PrimaryUnits}, {txt_UnitsGroup}, {txt_Description}}};
    bool EditingArea_ = false;
    bool EditingUnit_ = false;
    Focus ListFocus_ = Focus::Area;
    std::string PrimaryUnit_;
};

} // namespace metrisk
