// The import dialog: file, target picture, scale, submodel and layer table of one DXF or DWG import.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "dxfin/KrDxfInHelp.h"
#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"
#include "tablehub/LayerTableField.h"
#include "ui/FileNameField.h"
#include "ui/HostDialog.h"
#include "ui/HoverZones.h"
#include "ui/Medium.h"
#include "ui/MenuLabel.h"
#include "ui/PictureField.h"
#include "ui/RadioGroup.h"
#include "ui/WideningCombo.h"

class KrDxfIn final : public kiro::ui::HostDialog {
  public:
    explicit KrDxfIn(TARNAINFO* info);

  private:
    // What differs between the DXF and the DWG command.
    struct Mode {
        const char* caption;
        const char* typeName;
        const char* key;
        const char* comment;
    };
    static const Mode kDxf;
    static const Mode kDwg;

    // What a confirmed dialog writes into the record.
    struct Result {
        int picture = 0;
        double scale = 0;
        std::string inputFile;   // internal form
        std::string subModel;    // EUC
        std::string layerTable;  // internal form
    };

    void OnInit() override;
    void OnOk() override;

    // Filling the dialog.
    void BindControls();
    void InitTexts();
    void InitScales();

    // Handlers, in screen order.
    void PictureChanged(std::optional<int> number);
    void ModeChosen();
    void ScaleLeft();
    void ScaleChosen(int index);
    void MediumChosen();
    void RefreshVersion();
    void OpenParameters();
    void OpenAttributes();
    void OpenBatch();
    void HelpZoneChanged(int zone);

    kiro::ui::FileNameField::Place FilePlace() const;
    bool IsAddMode() const { return mode_.Selected() == 1; }
    bool IsShape() const { return dataType_.Selected() == 1; }
    void ShowVersion(const std::string& line) const;
    void ShowScaleOf(std::optional<int> picture);

    // The checks of the confirmation, in screen order. Each tells the user what is wrong and moves the focus.
    bool CheckPicture(Result& result);
    bool CheckScale(Result& result);
    bool CheckFile(Result& result);
    bool CheckSubModel(Result& result);
    bool CheckTable(Result& result) const;
    bool AgreesToLoseModel();
    bool Refuse(const char* message, int controlId);
    void WriteBack(const Result& result);

    DxfInParamBlock& Params();

    TarnaImportView& info_;
    std::optional<DxfInParamBlock> kept_;  // of the host's, when the record has no block
    const Mode& drawing_;
    bool isDwg_;
    bool pictureMatrix_;
    bool customScale_ = false;  // the scale list starts with an entry of the user's own

    kiro::ui::RadioGroup dataType_;
    kiro::ui::RadioGroup mode_;
    kiro::ui::RadioGroup matrix_;
    kiro::ui::Medium medium_;
    kiro::ui::PictureField picture_;
    kiro::ui::WideningCombo scales_;
    kiro::ui::FileNameField file_;
    kiro::ui::MenuLabel fileLabel_;
    LayerTableField table_;
    kiro::ui::HoverZones zones_;
    std::unique_ptr<kiro::ui::ExplanationPopup> help_;
};
