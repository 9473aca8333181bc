#pragma once

#include <QDialog>
#include <memory>
#include <string>

namespace Ui {
class frmOptions;
}

namespace tb {

class clResults;

// The options window: report heading, comment and footnote, where the data file and report
// folder are (used from the next start), and the list of handicap types.
class frmOptions : public QDialog {
    Q_OBJECT
public:
    explicit frmOptions(clResults& ResultsDb, QWidget* parent = nullptr);
    ~frmOptions() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Load();
    std::string FillHandicapTypes();
    void SelHCs_Click(int index);
    void AddHCs_Click();
    void cmdRemove_Click();
    void ListModels_Click();
    void ListSeries_Click();
    void cmdOK_Click();
    std::string SavePaths();
    bool HandicapTypeSelected() const;
    std::string SelectedTypeName() const;

    std::unique_ptr<Ui::frmOptions> ui;
    clResults& ResultsDb;
    int HandicapTypeId = 0;  // the type being edited; 0 for a new one
};

}  // namespace tb
