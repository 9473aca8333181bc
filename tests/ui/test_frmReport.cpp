#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <fstream>

#include "app/Globals.h"
#include "data/clResults.h"
#include "support/RaceDay.h"
#include "support/WindowTesting.h"
#include "ui/frmReport.h"

using namespace tb;
using namespace tb::test;

namespace {

// Slots 1 and 4 are free; race results offer two actions with different entrant selections; the
// entry list's actions deliver the XML itself, one for each way of opening it.
constexpr const char* kMenu =
    "[Entry list by handicap]\n"
    "Everyone=,,,2,1\n"
    "In a spreadsheet=,,,2,2\n"
    "As a web page=,,,2,3\n"
    "Filed only=,,,2,0\n"
    "[]\n"
    "[Class sheet]\n"
    "Sheet=classes.xsl,,,0,2\n"
    "[Race results]\n"
    "Series entrants=results.xsl,,,0,1\n"
    "Sub-series entrants=results.xsl,,,1,3\n"
    "[]\n"
    "[Combined results]\n";

struct Written {
    int action;
    QString viewedWith;
    bool folderWritable;
};

}  // namespace

class ReportWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TempFolder> programFolder;
    std::unique_ptr<RaceDay> day;
    std::unique_ptr<clResults> results;
    std::unique_ptr<RecordingMessages> messages;
    std::unique_ptr<frmReport> window;
    RecordingViewer viewer;
    Controls c{nullptr};

    void Open(int seriesId = RaceDay::kSeries) {
        window = std::make_unique<frmReport>(*results, seriesId, RaceDay::kRace, viewer);
        c.window = window.get();
        ShowActive(*window);
    }
    QRadioButton* Kind(int kind) {
        return c.Get<QRadioButton>(QStringLiteral("rReport_%1").arg(kind).toLatin1());
    }
private slots:
    void init() {
        programFolder = std::make_unique<TempFolder>();
        std::ofstream(programFolder->path() + "/Tallyboard.ini") << kMenu;
        SetProgramFolder(programFolder->path());
        day = std::make_unique<RaceDay>();
        results = std::make_unique<clResults>();
        messages = std::make_unique<RecordingMessages>();
        viewer.opened.clear();
        QCOMPARE(results->GetInitialisationInfo(), std::string());
    }
    void cleanup() {
        window.reset();
        messages.reset();
        results.reset();
        day.reset();
        SetProgramFolder({});
        programFolder.reset();
    }

    void okWritesTheReportAndOpensItWithTheActionsViewer_data() {
        QTest::addColumn<Written>("written");
        Row("browser", Written{0, "browser", true});
        Row("spreadsheet", Written{1, "spreadsheet", true});
        Row("browser, second code", Written{2, "browser", true});
        Row("not opened", Written{3, "", true});
        Row("folder cannot be written", Written{0, "", false});
    }
    void okWritesTheReportAndOpensItWithTheActionsViewer() {
        QFETCH(Written, written);
        day->AddBoat("Blue Heron", "GBR 4012", 4012, RaceDay::kClass1);
        ReportPath = (written.folderWritable ? day->db.folder() : day->db.path()) + "/";
        Open();
        Press(Kind(0));
        FocusOn(c.Get<QListWidget>("SelAction"));
        Key(Qt::Key_Home);
        for (int step = 0; step < written.action; ++step)
            Key(Qt::Key_Down);
        c.Press("cmdOK");

        QVERIFY(window->isVisible());
        const QString file = QString::fromStdString(ReportPath) + "2005/0612__2E.xml";
        QCOMPARE(QFileInfo::exists(file), written.folderWritable);
        QCOMPARE(c.Label("lStatus"), written.folderWritable ? "Written to " + file : QString());
        QCOMPARE(messages->shown.size(), std::size_t{written.folderWritable ? 0u : 1u});
        QCOMPARE(viewer.opened, written.viewedWith.isEmpty()
                                    ? QStringList()
                                    : QStringList({written.viewedWith + ": " + file}));
    }
};

QTEST_MAIN(ReportWindowTest)
#include "test_frmReport.moc"
