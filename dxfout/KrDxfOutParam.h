// The parameters of an export: version, form and code of the file, how some items are written, and the names of the
// blocks that compound data become.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"
#include "ui/HostDialog.h"
#include "ui/WordChoices.h"

class KrDxfOutParam final : public kiro::ui::HostDialog {
  public:
    // info: tells whether DWG files are written. The block is written when the dialog is confirmed.
    KrDxfOutParam(const TARNAINFO& info, DxfOutParamBlock& params);

  private:
    static constexpr std::size_t kNameSize = 65;
    using BlockName = char (DxfOutParamBlock::*)[kNameSize];

    // One kind of compound data.
    struct Kind {
        int blockRadio;
        int expandRadio;
        int nameEdit;
        std::int32_t DxfOutParamBlock::*expand;
        BlockName name;
        const char* guidance;
    };
    static const Kind kKinds[7];
    // The edit of the last shows its name only.
    static constexpr std::size_t kNamesToGive = 6;

    void OnInit() override;
    void OnOk() override;

    void BindChoices();
    void BindControls();
    DxfOutParamBlock Start() const;
    void VersionChosen(int version);
    void EnableCodes(std::int32_t code);
    void ShowUseOfSymbolName();

    bool CheckDivision();
    bool CheckNames();
    bool CheckName(std::size_t index);
    bool IsUntouched(std::size_t index) const { return TextOf(index) == shownNames_[index]; }
    void StoreNames(DxfOutParamBlock& block) const;
    std::wstring TextOf(std::size_t index) const { return Item<kiro::ui::Edit>(kKinds[index].nameEdit).WideText(); }
    bool Refuse(const char* message, int controlId) const;

    DxfOutParamBlock& params_;
    bool isDwg_;
    bool usesSymbolName_;
    std::vector<std::wstring> shownNames_;  // at the start
    kiro::ui::RadioGroup version_;
    kiro::ui::RadioGroup format_;
    kiro::ui::RadioGroup coordinates_;
    kiro::ui::RadioGroup code_;
    kiro::ui::WordChoices<DxfOutParamBlock> words_;
};
