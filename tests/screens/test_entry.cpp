// Entering an analysis on the main screen.
#include "tests/screens/support/Desk.h"

#include <QLineEdit>

namespace metrisk::testing {

class EntryTest final : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<Desk> desk_;

  private slots:
    void init() { desk_ = std::make_unique<Desk>(); }
    void cleanup() {
        QCOMPARE(desk_->boxes.faults(), QString());
        desk_.reset();
    }

    void computesWhatWasTyped() {
        Desk& d = *desk_;
        enterTwoSided(d);
        QCOMPARE(d.text("ModeBox"), QString("10.00"));
        QCOMPARE(d.text("UpperLimitBox"), QString("0.50"));
        d.click("ComputeResults");
        QVERIFY2(d.record.RisksComputed, qPrintable(d.allTexts()));
    }
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::EntryTest)
#include "test_entry.moc"
