// The line types of the model: their names, and when no conversion asks for it their patterns too.
#pragma once

#include <cstdint>

#include "model/LineNumbers.h"
#include "model/ModelNames.h"
#include "ui/Grid.h"
#include "ui/RadioGroup.h"

typedef struct HxLineStyle HxLineStyle;

inline constexpr int kLineTypeColumns = 10;

struct LineTypeRow : kiro::ui::GridRow<kLineTypeColumns> {
    int number = 0;
    OpenedName name;
    std::vector<double> pitches;  // as they were read last

    std::span<const std::string> PitchCells() const;
};

class KrDxfLineType final : public kiro::ui::HostDialog {
  public:
    // lineTypes: the 64 words of the command, which are read only: whether a conversion asks, and 1 for each line type
    // that is used.
    explicit KrDxfLineType(const std::int32_t* lineTypes);

  private:
    void OnInit() override;
    void OnOk() override;

    void AddRow(const HxLineStyle& style, int number);
    void ShowPatterns();
    void ShowPattern(int row);
    void MakeMultiplyDefault(bool on) const;

    bool ReadPitches();
    void Multiply();
    std::optional<double> ReadFactor();
    void MultiplyRow(int row, double factor);
    void NameAll();
    void RestoreNames();
    bool CheckNames();
    bool IsRepeated(int row) const;
    void Store(HxLineStyle* style);

    bool forConversion_;
    kiro::ui::GridRows<LineTypeRow> rows_;
    kiro::ui::Grid grid_;
    kiro::ui::RadioGroup scaled_;
    std::string factorText_;
};
