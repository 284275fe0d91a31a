// The patterns that line types are chosen from: names and comments, and in a second grid the dashes and gaps of the
// pattern that is current in the first one.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string_view>

#include "dxfout_tables/DxfOutLineTable.h"
#include "ui/Grid.h"

class KrDxfOutTbl_LStyle;

inline constexpr int kDxfOutShownPairs = 8;  // of a dash and a gap

struct DxfOutPatternRow : kiro::ui::GridRow<3> {
    static DxfOutPatternRow New() { return {}; }
    static DxfOutPatternRow Of(const DxfOutLineTable::Pattern& pattern);

    int Pairs() const;  // a row that has neither ends the pattern
    std::optional<kiro::ui::GridFault> PitchFault(KrUtility& utility) const;
    void Check(const kiro::ui::RowCheck& check) const;
    DxfOutLineTable::Pattern Stored() const;

    DxfOutLineTable::Pattern opened{};                            // with what the grids do not show
    std::array<kiro::ui::GridRow<3>, kDxfOutShownPairs> pairs{};  // rows of the second grid
    bool pitchesTouched = false;
    // What was done to them, while another pattern is shown.
    std::shared_ptr<kiro::ui::GridHistory> history = std::make_shared<kiro::ui::GridHistory>();
};

class KrDxfOutTbl_LStyle2 final : public kiro::ui::HostDialog {
  public:
    KrDxfOutTbl_LStyle2();

    void SetInfo(KrDxfOutTbl_LStyle* lineTypes);  // edits a copy of its table; a valid "設定" gives it back

  private:
    void OnInit() override;
    void OnOk() override;

    void ShowPitches(int row);
    void ShowPattern(int row);
    void TakePitch(int pair, int column);
    void CellMoved();
    void RowsMoved();
    bool MayDelete(int row) const;
    bool IsInUse(const DxfOutPatternRow& row) const;
    bool IsUsed(std::string_view name) const;

    bool Check();
    bool CheckPitches();
    void CheckPair(const kiro::ui::RowCheck& check) const;
    void Refused();
    void Store();

    KrDxfOutTbl_LStyle* lineTypes_ = nullptr;
    std::unique_ptr<DxfOutLineTable> table_;
    kiro::ui::GridRows<DxfOutPatternRow> patternRows_;
    kiro::ui::GridRows<kiro::ui::GridRow<3>> pairRows_;
    kiro::ui::Grid patterns_;
    kiro::ui::Grid pairs_;
    int shown_ = -1;                                       // the pattern whose pitches are shown; -1: none
    std::shared_ptr<kiro::ui::GridHistory> shownHistory_;  // where that pattern's goes
    int pairRow_ = -1;                                     // of the second grid, when it was checked last
    int badPitchesOf_ = -1;                                // the first pattern with a fault there; -1: none
};
