// The layer table that a command names: a field that only shows it, and the button that opens the chooser.
#pragma once

#include <optional>
#include <string>

#include "entry/host/FixedText.h"
#include "ui/HostDialog.h"
#include "ui/ScopedCopy.h"

class LayerTableField {
  public:
    struct Controls {
        int edit;
        int browseButton;
    };
    // pattern: what the chooser lists, such as "DXFKIRO_LAYER*". given: what the record names, EUC. Make it before the
    // dialog is shown.
    LayerTableField(kiro::ui::HostDialog& dialog, const Controls& controls, const char* pattern, std::string given);

    void Init();  // when the dialog is initialised

    // What the record is to name, in internal form; "" for none. Nothing when the user has been told that the name
    // cannot be used. room: the size of the record's field. A name that the user has not touched is no fault of his:
    // what cannot be formed or cannot be shown whole goes back as it came.
    std::optional<std::string> Confirm(const std::string& caption, std::size_t room) const;

    // "一括変換" takes the table from the record, in the form in which it is shown here. While open() runs the record's
    // field has it; then it is as before. Not run when the name has no room there, which the user is told.
    template <std::size_t N, class Open>
    void LendTo(char (&field)[N], const std::string& caption, Open open) const {
        const auto shown = dialog_.ReadText(controls_.edit, caption);
        if (!shown) return;
        const kiro::ui::ScopedCopy before(field);
        if (WriteFixedText(field, *shown))
            open();
        else
            Refuse("レイヤ変換テーブルのファイル名が長すぎます", caption, controls_.edit);
    }

  private:
    void Browse() const;
    void Show(const std::string& name) const;
    void Refuse(const char* message, const std::string& caption, int controlId) const;

    kiro::ui::HostDialog& dialog_;
    Controls controls_;
    const char* pattern_;
    std::string given_;
    std::string shown_;  // at the start
};
