// The export dialog: what of the model is written, to which file, by which layer table.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dxfout/OutModel.h"
#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"
#include "tablehub/LayerTableField.h"
#include "ui/FileNameField.h"
#include "ui/HostDialog.h"
#include "ui/Medium.h"
#include "ui/MenuLabel.h"
#include "ui/PictureField.h"
#include "ui/RadioGroup.h"

class KrDxfOut final : public kiro::ui::HostDialog {
  public:
    explicit KrDxfOut(TARNAINFO* info);

  private:
    // What differs between the DXF and the DWG command.
    struct Mode {
        const char* caption;
        const char* key;
        const char* comment;
    };
    static const Mode kDxf;
    static const Mode kDwg;

    // The radio buttons of "出力データ", in their order.
    enum Source { kLayout, kCurrent, kByNumber };

    // What a confirmed dialog writes into the record.
    struct Result {
        int picture = 0;
        int layout = 0;
        std::string outputFile;  // internal form
        std::string layerTable;  // internal form
    };

    void OnInit() override;
    void OnOk() override;

    void BindControls();

    // Handlers, in screen order.
    void SourceChosen(int source);
    void FollowSource(int source);
    void ShowCurrentPicture();
    void ShowLayouts();
    void LayoutChosen();
    void ChooseLayout();
    void ShowPicture(int picture);
    void PictureChanged(std::optional<int> number);
    void ChoosePicture();
    void OpenParameters();
    void OpenAttributes();
    void OpenBatch();

    kiro::ui::FileNameField::Place FilePlace() const;
    Source Chosen() const { return static_cast<Source>(source_.Selected()); }
    void SetNumber(int editId, int number) const;
    void ClearNumbers();

    // The checks of the confirmation. Each tells the user what is wrong.
    bool CheckVersion() const;
    bool CheckPicture();
    bool CheckContents(Result& result) const;
    bool CheckFile(Result& result);
    bool CheckTable(Result& result) const;
    bool CheckModel(const Result& result) const;
    bool Refuse(const char* message) const;
    void WriteBack(const Result& result);

    TARNAINFO& record_;
    TarnaExportView& info_;
    const Mode& drawing_;
    DxfOutParamBlock ownParams_{};  // for a host that hands over none
    DxfOutParamBlock& params_;
    std::vector<OutLayout> layouts_;
    int layout_ = 0;
    int picture_ = 0;

    kiro::ui::RadioGroup source_;
    kiro::ui::PictureField pictures_;
    kiro::ui::Medium medium_;
    kiro::ui::FileNameField file_;
    kiro::ui::MenuLabel fileLabel_;
    LayerTableField table_;
};
