// The frame of a command whose dialog is not built yet: its template's size and title, and a working "取消".
#pragma once

#include "ui/Dialog.h"

class CommandFrame final : public kiro::ui::Dialog {
  public:
    explicit CommandFrame(int templateId) : Dialog(templateId) {}
};
