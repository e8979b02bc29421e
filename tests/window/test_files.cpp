// The file commands and the way out, with the file dialogs that users see.
#include "tests/window/support/Desk.h"
#include "units/database/UnitsDatabase.h"
#include "window/kit/QtLauncher.h"
#include "window/kit/Widgets.h"

#include <QAction>
#include <QDialog>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>

namespace metrisk::testing {

class FileTest final : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<Desk> desk_;

    static constexpr const char* exitTitle = "Exit Metrisk";
    static constexpr const char* exitText = "This will end your Metrisk session.";
    static constexpr const char* saveTitle = "Save Analysis";

    void drop(const QString& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent entering(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(desk_->window.get(), &entering);
        QVERIFY(entering.isAccepted());
        QDropEvent dropped(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(desk_->window.get(), &dropped);
        desk_->settle();
    }

  private slots:
    void init() { desk_ = std::make_unique<Desk>(); }
    void cleanup() {
        QCOMPARE(desk_->boxes.faults(), QString());
        desk_.reset();
    }

    void savedAndReopenedIsTheSame() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.enter("LowerLimitBox", "0.4");
        d.click("ComputeResults");
        d.boxes.expectFile(d.path("mine"));
        d.choose("mnu_File_Save"); // untitled: asks for a name
        QCOMPARE(d.boxes.faults(), QString());
        QCOMPARE(d.window->windowTitle(), d.path("mine.mrk") + " - Metrisk[*]");
        QVERIFY(!d.window->isWindowModified());
        const QString saved = d.allTexts();
        const std::string content = fileContent(d.folder / "mine.mrk");

        d.choose("NewAnalysisFile");
        QCOMPARE(d.text("ModeBox"), QString());
        QCOMPARE(d.window->windowTitle(), QString("(Untitled) - Metrisk[*]"));
        d.boxes.expectFile(d.path("mine.mrk"));
        d.choose("mnu_File_Open");
        QCOMPARE(d.allTexts(), saved);
        d.boxes.expectBox("Compute Not Required", "Compute not required.\nNo changes have been made.");
        d.click("ComputeResults");
        d.choose("mnu_File_Save");
        QCOMPARE(fileContent(d.folder / "mine.mrk"), content);
    }

    /// Return in the dialogue as it comes up; where no name is proposed, after one has been typed.
    void everySaveDialogTakesReturn_data() {
        QTest::addColumn<QStringList>("screen"); // its command and name; none: the main screen
        QTest::addColumn<QString>("command");
        QTest::addColumn<QStringList>("before"); // a box: title, text and button
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("after");
        QTest::addColumn<QString>("written");
        const QStringList none, units{"mnu_Units", "UnitsRevision"};
        QTest::newRow("analysis") << none << "mnu_File_SaveAs" << none << "one.mrk"
                                  << QStringList{"Save Analysis As",
                                                 "one.mrk already exists.\nDo you want to replace it?", "Yes"}
                                  << "one.mrk";
        QTest::newRow("summary") << none << "mnu_FileSaveSummary" << none << "one.sum" << none << "one.sum";
        QTest::newRow("report") << QStringList{"mnu_Preview", "Print_SS"} << "mnu_Export" << none << "one.doc"
                                << QStringList{"Save File", "The file %1 was written.\nno programs", "OK"}
                                << "one.doc";
        QTest::newRow("units") << units << "mnu_SaveDatabase" << none << "" << none << "typed.mdb";
        QTest::newRow("new units") << units << "mnu_NewDatabase"
                                   << QStringList{"Close Database?",
                                                  "Creating a new database will close the current database.\n"
                                                  "Do you want to continue?",
                                                  "Yes"}
                                   << "" << none << "typed.mdb";
        QTest::newRow("notes")
            << none << "mnu_Notes"
            << QStringList{"Enter a Metrisk file name.",
                           "Please enter a file name and location for the current analysis.", "OK"}
            << "" << QStringList{"Unable to Open File", "no programs", "OK"} << "typed.rtf";
    }
    void everySaveDialogTakesReturn() {
        QFETCH(QStringList, screen);
        QFETCH(QString, command);
        QFETCH(QStringList, before);
        QFETCH(QString, name);
        QFETCH(QStringList, after);
        QFETCH(QString, written);
        Desk& d = *desk_;
        d.session.places.HomeDirectory = d.folder.path().string();
        d.session.places.UnitsDatabasePath = (d.folder / "units.mdb").string();
        makeUnitsDatabase(d.session.places.UnitsDatabasePath);
        if (!name.isEmpty()) {
            QVERIFY(QFile::copy(d.examplePath("multimeter-dc-volts"), d.path("one.mrk")));
            d.window->openAtStart(d.path("one.mrk"));
        }
        const auto expectDialog = [&](QWidget* over) {
            if (!before.isEmpty()) d.boxes.expectBox(before[0], before[1], before[2]);
            d.boxes.expectScreen("CommonDialogue", [&, over](QWidget& dialog) {
                auto* proposed = dialog.findChild<QLineEdit*>("fileNameEdit");
                QCOMPARE(proposed->text(), name);
                QCOMPARE(dialog.parentWidget(), over);
                if (name.isEmpty()) proposed->setText(d.path("typed"));
                QTest::keyClick(proposed, Qt::Key_Return);
            });
            if (!after.isEmpty())
                d.boxes.expectBox(after[0], QString(after[1]).replace("%1", d.path("one.doc")), after[2]);
        };
        if (screen.isEmpty()) {
            expectDialog(d.window.get());
            d.choose(command);
        } else {
            d.boxes.expectScreen(screen[1], [&](QWidget& opened) {
                expectDialog(&opened);
                d.control<QAction>(command, &opened)->trigger();
                opened.close();
            });
            d.choose(screen[0]);
        }
        QVERIFY(QFile::exists(d.path(qPrintable(written))));
    }

    void everyExampleOpensAsItWasComputed_data() {
        QTest::addColumn<QString>("name");
        for (const auto& entry : std::filesystem::directory_iterator(METRISK_SOURCE_DIR "/examples"))
            if (entry.path().extension() == ".mrk")
                QTest::addRow("%s", entry.path().stem().c_str())
                    << QString::fromStdString(entry.path().stem());
    }
    void everyExampleOpensAsItWasComputed() {
        QFETCH(QString, name);
        Desk& d = *desk_;
        d.boxes.answerAll = [](QWidget& window) {
            if (auto* box = qobject_cast<QDialog*>(&window); box && window.objectName() != "Computing")
                box->accept();
        };
        d.window->openAtStart(d.examplePath(name));
        d.settle();
        QVERIFY(!d.record.FileChanged);
        const QString opened = d.allTexts();
        d.record.RisksNeedCompute = true;
        d.click("ComputeResults");
        d.settle();
        QCOMPARE(d.allTexts(), opened);
    }

    void exitWithChanges() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.boxes.expectBox(exitTitle, exitText, "Cancel");
        d.choose("ExitAnalysis");
        QVERIFY(d.window->isVisible());
        d.boxes.expectBox(exitTitle, exitText, "OK");
        d.boxes.expectBox(saveTitle, "Save changes to (Untitled)?", "Cancel");
        d.choose("ExitAnalysis");
        QVERIFY(d.window->isVisible());
        d.boxes.expectBox(exitTitle, exitText, "OK");
        d.boxes.expectBox(saveTitle, "Save changes to (Untitled)?", "Yes");
        d.boxes.expectFile("");
        d.choose("ExitAnalysis"); // the save that was asked for did not come about
        QVERIFY(d.window->isVisible());
        d.boxes.expectBox(exitTitle, exitText, "OK");
        d.boxes.expectBox(saveTitle, "Save changes to (Untitled)?", "Yes");
        d.boxes.expectFile(d.path("last.mrk"));
        d.choose("ExitAnalysis");
        QVERIFY(!d.window->isVisible());
        QVERIFY(std::filesystem::exists(d.folder / "last.mrk"));
    }

    void aDroppedFileOpens() {
        Desk& d = *desk_;
        drop(d.examplePath("gauge-block-25mm"));
        QCOMPARE(d.text("SystemIDBox"), QString("Granite & Sons"));
        QCOMPARE(d.window->windowTitle(), d.examplePath("gauge-block-25mm") + " - Metrisk[*]");
        d.enter("ModeBox", "30");
        d.boxes.expectBox(saveTitle, "Save changes to " + d.examplePath("gauge-block-25mm") + "?", "No");
        drop(d.examplePath("ph-buffer-deviation"));
        QCOMPARE(d.window->windowTitle(), d.examplePath("ph-buffer-deviation") + " - Metrisk[*]");
    }

    void recentFilesComeBack() {
        Desk& d = *desk_;
        drop(d.examplePath("gauge-block-25mm"));
        d.open();
        auto* recent = d.control<QMenu>("mnu_RecentFiles");
        emit recent->aboutToShow();
        QCOMPARE(recent->actions().size(), 1);
        recent->actions().first()->trigger();
        d.settle();
        QCOMPARE(d.text("SystemIDBox"), QString("Granite & Sons"));
    }

    void onlyEnteringTouchesNoSettings() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.click("ComputeResults");
        d.click("optOffsets_0");
        d.choose("NewAnalysisFile");
        d.boxes.faults();
        QVERIFY(!std::filesystem::exists(d.settings.path()));
    }

    void programsGetTheirArgumentsAsTheyAre() {
        const std::string folder = desk_->folder.path().string();
        const QString said = desk_->path("said");
        const std::string program = desk_->folder.write(
            "a \"b\"", "#!/bin/sh\npwd > said.part\nprintf '%s\\n' \"$@\" >> said.part\nmv said.part said\n");
        QtLauncher launcher;
        QVERIFY(!launcher.start({program, {}, folder}).empty()); // may not be executed
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        QVERIFY(!launcher.start({program, {}, folder + "/none"}).empty());
        QCOMPARE(launcher.start({program, {"$(x) 'q'", "", "\"z"}, folder}), std::string());
        QTRY_VERIFY(QFile::exists(said));
        QCOMPARE(fileContent(said.toStdString()), folder + "\n$(x) 'q'\n\n\"z\n");
    }

    void whatAFileIsOpenedWith() {
        QtLauncher launcher;
        const std::string unknown = desk_->folder.write("some.unknown-kind", "\1\2\3");
        QVERIFY(launcher.associationOf(unknown).entry.empty());
        QVERIFY(!launcher.openDocument(unknown).empty());
        const QDir data(qEnvironmentVariable("XDG_DATA_HOME"));
        QVERIFY(data.mkpath("applications"));
        const auto write = [&data](const char* name, const char* content) {
            QFile file(data.filePath(name));
            QVERIFY(file.open(QFile::WriteOnly) && file.write(content) > 0);
        };
        write("applications/editor.desktop", "[Desktop Entry]\nType=Application\nExec=editor %F\n");
        write("applications/mimeapps.list", "[Default Applications]\ntext/plain=editor.desktop\n");
        const Association found = launcher.associationOf(desk_->folder.write("table.csv", "1,2"));
        QDir(data.filePath("applications")).removeRecursively();
        QCOMPARE(qt(found.entry), data.filePath("applications/editor.desktop"));
        QCOMPARE(found.type, std::string("text/plain")); // a table is a text, too
    }
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::FileTest)
#include "test_files.moc"
