// Binds the widgets of a window to the controls of a worksheet, by name.
#pragma once

#include "desk/kit/Worksheet.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <functional>

class QAction;
class QLineEdit;
class QMenu;
class QMenuBar;
class QToolBar;
class QWidget;

namespace metrisk {

class CellTable;
class EntryBox;
class SheetView;

class ScreenBinder final : public QObject {
    Q_OBJECT

  public:
    /// Pairs widgets and controls and connects them. Both must outlive the binder.
    ScreenBinder(QWidget& window, Worksheet& model);

    Worksheet& model() { return model_; }
    QWidget& window() { return window_; }

    /// Fills the bar with the worksheet's menus. The actions bear the items' names.
    void buildMenus(QMenuBar& bar);
    /// Fills it with the buttons that have something to run, named after the bar and their keys.
    /// Edge of the icons of a toolbar in its font, where it has room for all of them.
    static int toolIconSize(const QToolBar& bar);
    void buildToolbar(QToolBar& bar, const std::vector<ToolButton>& buttons);
    QAction* action(const QString& item) const { return actions_.value(item); }

    /// Refreshes the worksheet and shows it; in the midst of an action of the user, once that ends.
    void repaint();
    /// Shows now what repaint() put off.
    void flush();
    /// Commits the entry being made, as leaving its box would. False if it was refused: the focus comes
    /// back to it.
    bool commitEntry();
    /// Commits, then runs the item.
    void run(const QString& item);
    /// Commits, then does what is no control's and no menu's. False if the entry was refused.
    bool perform(const std::function<void()>& action);
    /// In the midst of an action of the user.
    bool isActing() const { return acting_ > 0 || model_.leaving(); }
    /// Commits, then asks the worksheet. A refused entry does not keep the user from cancelling.
    bool close(Way way);

    void focus(const QString& control, bool select);
    /// Makes a panel stand out until the next entry.
    void highlight(const QString& panel);
    /// The widget that has the focus, or had it before the arrow keys went through the menus.
    QWidget* focused() const;
    QLineEdit* activeBox() const;

    /// Controls without a widget; empty for every screen.
    QStringList unpaired() const;

  signals:
    /// The worksheet has been left.
    void closed();
    /// The worksheet has been shown anew.
    void shown();
    /// An action of the user's begins and ends; what it does in between is one.
    void began();
    void ended();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Binding;

    void bind(TextBox& box);
    void bind(Button& button);
    void bind(Choice& choice);
    void bind(ListBox& list);
    void bind(Slider& slider);
    void bind(Hypertext& text);
    void bind(Table& table);
    void bind(Sheet& sheet);
    void openTableMenu(Table& table, const QPoint& at);
    void edit(CellTable& widget, Editing what);
    void edit(SheetView& widget, Editing what);
    void bind(PictureArea& picture);
    void bind(Memo& memo);
    void setTabOrder();
    void addItem(QMenu& menu, const MenuItem& item);
    void refill(QMenu& menu, const std::vector<MenuItem>& items);
    QAction* makeAction(const MenuItem& item);
    void edit(Editing what);
    void showMenus();
    const MenuItem* itemOf(const QString& name) const;
    void showEditState();
    void endHover();

    /// Runs a rule of the worksheet and shows what has become of it.
    void act(const std::function<void()>& rule);
    void show();
    void show(Control& control, QWidget& widget);
    bool leave(TextBox& box, EntryBox& widget);
    void stayIn(TextBox& box, EntryBox& widget);

    QWidget& window_;
    Worksheet& model_;
    QHash<QString, QWidget*> widgets_;
    QHash<QString, QAction*> actions_;
    QPointer<QWidget> highlighted_;
    QPointer<QWidget> beforeMenus_;
    int acting_ = 0;
    bool due_ = false;
    bool showing_ = false;
};

} // namespace metrisk
