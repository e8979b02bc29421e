// The main screen: panels, menus and toolbar over the models of the core.
#pragma once

#include "shell/mainscreen/MainScreen.h"

#include <QHash>
#include <QMainWindow>
#include <memory>

class QLineEdit;

namespace metrisk {

class EntryBox;
class QtInteraction;
class WindowCommands;
struct Places;

class MainWindow final : public QMainWindow {
    Q_OBJECT

  public:
    MainWindow(Session& session, QtInteraction& ui);
    ~MainWindow() override;

    /// Commits the entry that is being made, as leaving its box would. False if it was refused.
    bool commitEntry();

    /// Shows the record: every control takes the state that the model gives it. A box that is being
    /// typed into keeps its text.
    void repaintRecord();

    void openAtStart(const QString& path);
    void setPlaces(const Places& places);

    MainScreen& model() { return model_; }
    QLineEdit* activeBox() const;

    QSize sizeHint() const override;

  protected:
    /// The locked boxes take their colour from the desktop's.
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void buildPanels();
    void bindBoxes();
    void bindOptions();
    /// Runs the field rule; false if it refuses the entry, to which the focus then comes back.
    bool leave(EntryBox* box);
    void showHighlight(const std::string& panel);

    Session& session_;
    QtInteraction& ui_;
    MainScreen model_;
    std::unique_ptr<WindowCommands> commands_;
    QHash<QString, QWidget*> controls_;
    EntryBox* committing_ = nullptr;
    bool painting_ = false;
    QWidget* highlighted_ = nullptr;
};

} // namespace metrisk
