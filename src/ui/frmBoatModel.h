#pragma once

#include <QDialog>
#include <memory>
#include <string>

namespace Ui {
class frmBoatModel;
}

namespace tb {

class clResults;

// The small window for one boat model: opened by the boat editor to add a model (SelectedId -1)
// or to edit one. After exec() the editor lists and selects SavedModelId(), 0 when none was saved.
class frmBoatModel : public QDialog {
    Q_OBJECT
public:
    frmBoatModel(clResults& ResultsDb, int SelectedId, QWidget* parent = nullptr);
    ~frmBoatModel() override;

    int SavedModelId() const { return SavedId; }

protected:
private:
    std::string Load();
    std::string SaveModel();

    std::unique_ptr<Ui::frmBoatModel> ui;
    clResults& ResultsDb;
    int ModelId;
    int SavedId = 0;
};

}  // namespace tb
