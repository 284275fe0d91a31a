// The parameters of drawings that are written for one of the two database systems: what both have in common. Their
// blocks have these fields alike, some at places of their own.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "entry/host/FixedText.h"
#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"
#include "entry/host/kirobc.h"
#include "text/NumberText.h"
#include "ui/HostDialog.h"
#include "ui/WordChoices.h"

constexpr unsigned int kGroupLimit = 4;  // characters that can be typed
constexpr unsigned int kUserLimit = 6;
constexpr unsigned int kRatioLimit = 10;
constexpr double kLeastRatio = 0.1;
constexpr double kMostRatio = 10;
constexpr int kLeastCapacity = 10;  // in K
constexpr int kMostCapacity = 64;   // but for version 3 of Pelion

template <class Block>
class DbOutParam : public kiro::ui::HostDialog {
  protected:
    struct Controls {
        int groupEdit;
        int userEdit;
        int capacityEdit;
        unsigned int capacityLimit;
        int heightRatioEdit;
        int widthRatioEdit;
        int keepCheck;
    };
    struct Form {
        int templateId;
        const char* caption;
        Controls controls;
        int (*keep)(TARNAINFO* info);
        int (*readKept)(Block* params);
    };
    struct Fault {
        int controlId;
        const char* message;
    };

    DbOutParam(const Form& form, TARNAINFO* info)
        : HostDialog(form.templateId), form_(form), info_(info), words_(*this) {
        const Controls& controls = form.controls;
        BindText({controls.groupEdit, kGroupLimit, "グループ名を入力してください。"});
        BindText({controls.userEdit, kUserLimit, "ユーザ名を入力してください。"});
        BindText({controls.capacityEdit, controls.capacityLimit, "図面容量を入力してください。"});
    }

    // An edit, and how many characters can be typed there.
    struct Text {
        int editId;
        unsigned int limit;
        const char* guidance;
    };
    void BindText(const Text& text) {
        texts_.push_back(text);
        Guide({{text.editId, text.guidance}});
        NormaliseOnKillFocus(text.editId);
    }
    // Buttons each of which is a group of its own.
    void BindRadios(std::int32_t Block::*word, kiro::ui::RadioGroup radios, std::vector<std::int32_t> values,
                    int otherwise) {
        radios.OnChosen(nullptr);
        words_.Radios(word, radios, std::move(values), otherwise);
    }
    // The choices that both have.
    struct CommonRadios {
        kiro::ui::RadioGroup symbols;
        kiro::ui::RadioGroup frame;
        kiro::ui::RadioGroup hidden;
        kiro::ui::RadioGroup views;
    };
    void BindRadios(const CommonRadios& radios) {
        BindRadios(&Block::symbolsAsSymbols, radios.symbols, {0, 1}, 1);
        BindRadios(&Block::frameMode, radios.frame, {0, 1, 2}, 0);
        BindRadios(&Block::skipHiddenItems, radios.hidden, {0, 1}, 1);
        BindRadios(&Block::mergeViews, radios.views, {0, 1}, 1);
    }
    void BindRatios(const char* heightGuidance, const char* widthGuidance) {
        BindText({form_.controls.heightRatioEdit, kRatioLimit, heightGuidance});
        BindText({form_.controls.widthRatioEdit, kRatioLimit, widthGuidance});
    }

    // What comes before the fields that both have: the name that is checked first, and the range of the capacity.
    virtual void ShowOwn(const Block&) {}
    virtual std::optional<Fault> OwnFault() const = 0;
    virtual void ReadOwn(Block& params) const = 0;
    virtual int MostCapacity() const { return kMostCapacity; }

    std::string TextOf(int editId) const {
        return this->template Item<kiro::ui::Edit>(editId).Text().value_or(std::string());
    }

    void OnInit() override {
        InitUtility();
        kiro::ui::Window(Handle()).SetText(form_.caption);
        Utility().SetCaption(form_.caption);
        for (const Text& text : texts_) this->template Item<kiro::ui::Edit>(text.editId).LimitText(text.limit);
        const Block& params = Params();
        words_.Show(params);
        SetText(form_.controls.groupEdit, ReadFixedText(params.group));
        SetText(form_.controls.userEdit, ReadFixedText(params.user));
        SetText(form_.controls.capacityEdit, std::to_string(params.drawingCapacity));
        SetText(form_.controls.heightRatioEdit, Formatted("%g", params.textHeightRatio));
        SetText(form_.controls.widthRatioEdit, Formatted("%g", params.textWidthRatio));
        ShowOwn(params);
    }
    void SetText(int controlId, const std::string& text) const {
        this->template Item<kiro::ui::Window>(controlId).SetText(text);
    }

    const Form& form_;
    TARNAINFO* info_;
    kiro::ui::WordChoices<Block> words_;

  private:
    // A host that hands over no block: the dialog shows what is kept.
    Block& Params() {
        if (info_->database.dbOutParams) return *static_cast<Block*>(info_->database.dbOutParams);
        if (!own_) form_.readKept(&own_.emplace());
        return *own_;
    }

    bool IsRatio(int editId) const {
        return Utility().CheckNumber(TextOf(editId).c_str(), kKrReal, kLeastRatio, kMostRatio) != 0;
    }

    // In the order of the fields.
    std::optional<Fault> FirstFault() const {
        const Controls& controls = form_.controls;
        if (const auto fault = OwnFault()) return fault;
        const int group = CheckGroupName(TextOf(controls.groupEdit).c_str());
        if (group == 0) return Fault{controls.groupEdit, "無効なグループ名です。"};
        if (CheckUserName(TextOf(controls.userEdit).c_str(), group) == 0)
            return Fault{controls.userEdit, "無効なユーザ名です。"};
        if (!Utility().CheckNumber(TextOf(controls.capacityEdit).c_str(), kKrInteger, kLeastCapacity, MostCapacity()))
            return Fault{controls.capacityEdit, "無効な図面容量です。"};
        if (!IsRatio(controls.heightRatioEdit)) return Fault{controls.heightRatioEdit, "無効な文字高倍率です。"};
        if (!IsRatio(controls.widthRatioEdit)) return Fault{controls.widthRatioEdit, "無効な文字幅倍率です。"};
        return std::nullopt;
    }

    void OnOk() override {
        NormaliseAll();
        if (const auto fault = FirstFault())
            return RefuseInGuidance(fault->controlId, fault->message, form_.caption, kiro::ui::Icon::kWarning, true);
        Read(Params());
        const bool keep = this->template Item<kiro::ui::Button>(form_.controls.keepCheck).IsChecked();
        // Deliberately the block has been written when it cannot be kept.
        if (keep && form_.keep(info_) != 0)
            return kiro::ui::Tell(Handle(), "パラメータファイルの書込みに失敗しました。", form_.caption);
        End(IDOK);
    }

    // What the checks have passed.
    void Read(Block& params) const {
        const Controls& controls = form_.controls;
        words_.Read(params);
        WriteFixedText(params.group, TextOf(controls.groupEdit));
        WriteFixedText(params.user, TextOf(controls.userEdit));
        params.drawingCapacity = ReadInteger(TextOf(controls.capacityEdit)).value_or(kLeastCapacity);
        params.textHeightRatio = RealOf(TextOf(controls.heightRatioEdit));
        params.textWidthRatio = RealOf(TextOf(controls.widthRatioEdit));
        ReadOwn(params);
    }

    std::vector<Text> texts_;
    std::optional<Block> own_;
};
