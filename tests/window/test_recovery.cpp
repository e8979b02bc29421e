// What the window does when the desktop, the system or an action ends unforeseen.
#include "tests/window/support/Desk.h"
#include "window/shell/Application.h"
#include "window/shell/UnsavedWork.h"

#include <QTimer>

namespace metrisk::testing {

namespace {

/// Throws where nothing of the program catches it.
class Faulty final : public QObject {
  protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::User) throw std::runtime_error("out of luck");
        return QObject::event(event);
    }
};

} // namespace

class RecoveryTest final : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<Desk> desk_;

    std::size_t copies() {
        std::error_code none;
        std::size_t count = 0;
        for (std::filesystem::directory_iterator at(desk_->folder / "state", none), end; at != end; ++at)
            ++count;
        return count;
    }

  private slots:
    void init() {
        desk_ = std::make_unique<Desk>();
        desk_->window->keepUnsavedWork(desk_->folder / "state");
    }
    void cleanup() {
        QCOMPARE(desk_->boxes.faults(), QString());
        desk_.reset();
    }

    void theCopyHoldsTheAnalysisAlone() {
        Desk& d = *desk_;
        UnsavedWork& work = *d.window->unsavedWork();
        work.update();
        QCOMPARE(copies(), std::size_t{0});
        enterTwoSided(d);
        const std::string texts = d.allTexts().toStdString();
        work.update();
        QCOMPARE(copies(), std::size_t{1});
        QCOMPARE(d.allTexts().toStdString(), texts);
        const std::string content =
            fileContent(std::filesystem::directory_iterator(d.folder / "state")->path());
        // A worksheet puts figures of its own into the record while it is open.
        d.boxes.expectScreen("ObservedPctWorksheet", [&](QWidget& screen) {
            d.record.MTE_Offset = 99;
            work.update();
            d.click("mnu_Exit_1", &screen);
        });
        d.choose("CtrlSURel");
        QCOMPARE(fileContent(std::filesystem::directory_iterator(d.folder / "state")->path()), content);
        d.boxes.expectFile(d.path("mine.mrk"));
        d.choose("mnu_File_Save");
        QCOMPARE(copies(), std::size_t{0});
    }

    void theEndOfTheDesktopAsks() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.boxes.expectBox("Exit Metrisk", "This will end your Metrisk session.", "Cancel");
        QVERIFY(!d.window->endOfDesktop());
        QCOMPARE(copies(), std::size_t{1}); // whatever the desktop does now
        QVERIFY(d.window->isVisible());
    }

    void anUnexpectedFaultEndsNothing() {
        Desk& d = *desk_;
        enterTwoSided(d);
        auto& app = static_cast<Application&>(*QApplication::instance());
        app.onUnexpected = [&](const char* what) { d.window->files().tellUnexpected(what); };
        d.boxes.expectBox("Metrisk", "An unexpected error has ended what was going on:\nout of luck\n"
                                     "The analysis is as it was.");
        d.boxes.expectBox("Metrisk", "Save the analysis now?", "Yes");
        d.boxes.expectFile(d.path("kept.mrk"));
        Faulty faulty;
        QCoreApplication::postEvent(&faulty, new QEvent(QEvent::User));
        QCoreApplication::processEvents();
        app.onUnexpected = nullptr;
        QVERIFY(std::filesystem::exists(d.folder / "kept.mrk"));
        QVERIFY(d.window->isVisible());
    }
};

} // namespace metrisk::testing

int main(int argc, char** argv) {
    metrisk::Application app(argc, argv);
    metrisk::testing::RecoveryTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_recovery.moc"
