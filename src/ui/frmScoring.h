#pragma once

#include <QDialog>
#include <array>
#include <memory>
#include <string>

class QLineEdit;

namespace Ui {
class frmScoring;
}

namespace tb {

class clResults;

// The scoring editor: shows one scoring system and one discard rule and saves both together.
class frmScoring : public QDialog {
    Q_OBJECT
public:
    explicit frmScoring(clResults& ResultsDb, QWidget* parent = nullptr);
    ~frmScoring() override;

protected:
private:
    std::string Load();
    std::string ListScoring();
    std::string ListDiscards();
    std::string ShowScoring();
    std::string ShowDiscards();
    std::string Save();
    std::string RemoveScoring();
    std::string RemoveDiscardRule();
    std::string ListSeriesUsingScoring();
    std::string ListSeriesUsingDiscardRule();

    std::unique_ptr<Ui::frmScoring> ui;
    clResults& ResultsDb;
    std::array<QLineEdit*, 13> tValue{};
    std::array<QLineEdit*, 5> tRun{};
    std::array<QLineEdit*, 5> tDiscards{};
    int ScoringId = 0;
    int DiscardId = 0;
};

}  // namespace tb
