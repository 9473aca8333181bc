// The report window: the chosen action's report is written to the report folder and opened with
// the viewer its menu line names.

#include <QFileInfo>
#include <QListWidget>
#include <QRadioButton>
#include <QTest>
#include <fstream>

#include "app/Globals.h"
#include "support/WindowTesting.h"
#include "ui/frmReport.h"

using namespace tb;
using namespace tb::test;

class ReportWindowTest : public QObject {
    Q_OBJECT

private slots:
    void okWritesTheReportAndOpensItWithTheActionsViewer_data() { CasesFrom("report-viewers.tsv"); }
    void okWritesTheReportAndOpensItWithTheActionsViewer() {
        const QStringList written = Case();
        const bool writable = written[2] == "yes";
        const TempFolder programFolder;
        std::ofstream(programFolder.path() + "/Tallyboard.ini") << DataText("report-menu.ini");
        SetProgramFolder(programFolder.path());
        RaceDay day;
        day.AddBoat("Blue Heron", "GBR 4012", 4012, RaceDay::kClass1);
        clResults results;
        RecordingMessages messages;
        RecordingViewer viewer;
        QCOMPARE(results.GetInitialisationInfo(), std::string());
        ReportPath = (writable ? day.db.folder() : day.db.path()) + "/";
        frmReport window(results, RaceDay::kSeries, RaceDay::kRace, viewer);
        const Controls c{&window};
        ShowActive(window);
        c.Press("rReport_0");
        FocusOn(c.Get<QListWidget>("SelAction"));
        Key(Qt::Key_Home);
        for (int step = 0; step < written[0].toInt(); ++step)
            Key(Qt::Key_Down);
        c.Press("cmdOK");
        SetProgramFolder({});

        QVERIFY(window.isVisible());
        const QString file = QString::fromStdString(ReportPath) + "2005/0612__2E.xml";
        QCOMPARE(QFileInfo::exists(file), writable);
        QCOMPARE(c.Label("lStatus"), writable ? "Written to " + file : QString());
        QCOMPARE(messages.shown.size(), std::size_t{writable ? 0u : 1u});
        QCOMPARE(viewer.opened,
                 written[1].isEmpty() ? QStringList() : QStringList({written[1] + ": " + file}));
    }
};

QTEST_MAIN(ReportWindowTest)
#include "test_frmReport.moc"
