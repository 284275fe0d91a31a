// A drawing of a batch could not be converted: are the others to be?
#pragma once

#include <string>
#include <utility>

#include "ui/Dialog.h"

class KrDxfInGoOn final : public kiro::ui::Dialog {
  public:
    // Shift-JIS. Its result is IDOK for "はい".
    KrDxfInGoOn(std::string caption, std::string reason);
    bool IsForAll() const { return forAll_; }  // without a question after another failure

  private:
    void OnInit() override;
    void OnOk() override;

    std::string caption_;
    std::string reason_;
    bool forAll_ = false;
};
