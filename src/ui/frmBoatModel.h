#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

namespace Ui {
class frmBoatModel;
}

namespace tb {

class clResults;

// The small window for one boat model: opened by the boat editor to add a model (SelectedId -1)
// or to edit one; a saved model is handed back so the editor lists and selects it.
class frmBoatModel : public QDialog {
    Q_OBJECT
public:
    using ModelSaved = std::function<void(int ModelId)>;
    frmBoatModel(clResults& ResultsDb, int SelectedId, ModelSaved modelSaved,
                 QWidget* parent = nullptr);
    ~frmBoatModel() override;

protected:
private:
    std::string Load();
    std::string SaveModel();

    std::unique_ptr<Ui::frmBoatModel> ui;
    clResults& ResultsDb;
    int ModelId;
    ModelSaved modelSaved;
};

}  // namespace tb
