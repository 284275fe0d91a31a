// The line widths of the model, and how lines with a width are displayed.
#pragma once

#include <cstdint>
#include <vector>

#include "ui/Grid.h"
#include "ui/RadioGroup.h"

typedef struct HxLineStyle HxLineStyle;

struct LineWidthRow : kiro::ui::GridRow<2> {
    int number = 0;
    double width = 0.0;  // as it was read last
};

class KrDxfLineWidth final : public kiro::ui::HostDialog {
  public:
    // mode 0: standard widths only. lineWidths: the 17 words of the command, which are read only: whether a conversion
    // asks, and 1 for each line width that is used.
    KrDxfLineWidth(std::int32_t mode, const std::int32_t* lineWidths);

  private:
    void OnInit() override;
    void OnOk() override;

    void MakeRoom() const;
    void ShowDisplay(const HxLineStyle* style);
    void DisplayChosen(int display);
    enum class Source { kModel, kPitch };
    void FillFrom(Source source);
    void Refill(Source source);
    void ClearAll();

    bool Check();
    bool CheckStandard();
    void ReadWidths();
    std::string WidthText(double width) const;
    bool Write();
    void WriteDisplay(HxLineStyle* style) const;
    void WriteJournal(const HxLineStyle* style) const;
    void Save();

    bool standardOnly_;
    bool forConversion_;
    std::vector<double> standard_;
    kiro::ui::GridRows<LineWidthRow> rows_;
    kiro::ui::Grid grid_;
    kiro::ui::RadioGroup display_;
    int chosen_ = -1;  // of them
};
