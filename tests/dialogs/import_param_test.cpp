// The parameters of an import.
#include "dxfin/KrDxfInParam.h"

#include "entry/host/kirodxf.h"
#include "entry/host/kiromdl.h"
#include "resources/dxfin/KrDxfInParam.ids.h"
#include "tests/dialogs/ImportHost.h"

using namespace kiro::drive;
using Words = DxfInParamBlock;

namespace {

// The words with buttons, each button with the value that it gives.
struct Choice {
    std::int32_t Words::*word;
    std::vector<int> radios;
};
const Choice kChoices[] = {
    {&Words::kanjiCode, {kFromSjisRadio, kFromEucRadio}},
    {&Words::fill, {kFillStringRadio, kFillRadio}},
    {&Words::dimension, {kDimensionLineRadio, kDimensionItemRadio}},
    {&Words::textAngle, {kTextByAngleRadio, kTextByPointsRadio}},
    {&Words::convertHidden, {kHiddenOffRadio, kHiddenOnRadio}},
    {&Words::viewZone, {kViewZoneOffRadio, kViewZoneOnRadio}},
    {&Words::lineBreaks, {kLineBreaksOffRadio, kLineBreaksOnRadio}},
    {&Words::paperSpaceTarget, {kPaperToPictureRadio, kPaperToLayoutRadio}},
    {&Words::singleRounding, {kRoundingOffRadio, kRoundingSignificantRadio, kRoundingGivenRadio}},
};
const int kBlockRadios[] = {kBlockToItemRadio, kSymbolKeepRadio, kSymbolOverwriteRadio, kBlockToSubModelRadio};

class ImportParameters : public ImportHost {
  protected:
    ImportParameters() {
        Words& words = record.params;
        for (const Choice& choice : kChoices) words.*choice.word = 0;
        words.blockData = words.symbolOverwrite = words.dimensionAngle = 0;
        words.splitItemCount = 100;
        words.maxItemCount = 1000;
        words.roundingDigits = words.angleDigits = 7;
    }
    INT_PTR Run(const User& user) {
        KrDxfInParam dialog(record.info.input, record.params);
        return Play(dialog, user);
    }
};

}  // namespace

TEST_F(ImportParameters, EveryButtonShowsAndSetsItsWord) {
    const Words before = record.params;
    Words expected = before;
    for (const Choice& choice : kChoices) expected.*choice.word = static_cast<int>(choice.radios.size()) - 1;
    expected.dimensionAngle = 3;
    Run([&](HWND dialog) {
        for (const Choice& choice : kChoices) {
            EXPECT_TRUE(IsChecked(dialog, choice.radios.front()));
            Click(dialog, choice.radios.back());
        }
        Pick(dialog, kAngleRuleCombo, 3);
        Click(dialog, IDOK);
    });
    EXPECT_EQ(0, std::memcmp(&expected, &record.params, sizeof expected));

    constexpr std::pair<int, int> kBlockWords[] = {{0, 1}, {1, 0}, {1, 1}, {2, 1}};
    for (std::size_t i = 0; i < 4; ++i) {
        record.params.symbolOverwrite = 1;
        Run([&](HWND dialog) {
            Click(dialog, kBlockRadios[i]);
            Click(dialog, IDOK);
        });
        EXPECT_EQ(kBlockWords[i], std::pair(record.params.blockData, record.params.symbolOverwrite));
        Run([&](HWND dialog) { EXPECT_TRUE(IsChecked(dialog, kBlockRadios[i])); });
    }
}

TEST_F(ImportParameters, ValuesWithoutAButtonStayUntilOneIsChosen) {
    for (const Choice& choice : kChoices) record.params.*choice.word = 9;
    record.params.dimensionAngle = record.params.blockData = -1;
    const Words before = record.params;
    Run([&](HWND dialog) {
        for (const Choice& choice : kChoices) EXPECT_TRUE(IsChecked(dialog, choice.radios.back()));
        EXPECT_TRUE(IsChecked(dialog, kBlockToItemRadio));
        EXPECT_EQ(-1, Picked(dialog, kAngleRuleCombo));
        Click(dialog, IDOK);
    });
    EXPECT_EQ(0, std::memcmp(&before, &record.params, sizeof before));
    record.info.input.inputIsDwg = 1;
    Run([&](HWND dialog) {
        EXPECT_TRUE(IsChecked(dialog, kFromSjisRadio) && !IsEnabled(dialog, kFromEucRadio));
        Click(dialog, IDOK);
    });
    EXPECT_EQ(0, record.params.kanjiCode);
}

TEST_F(ImportParameters, NumbersAreCheckedInTheirOrderAndNothingIsWrittenBefore) {
    const auto text = [](int number) { return std::to_wstring(number); };
    const std::wstring most = text(HxItemMaxSrCount());
    const struct {
        int edit;
        std::wstring bad, good;
        const wchar_t* message;
    } kRows[] = {
        {kSplitCountEdit, L"99", most, L"無効な分割アイテム数です"},
        {kSplitCountEdit, text(HxItemMaxSrCount() + 1), L"100", L"無効な分割アイテム数です"},
        {kMaxCountEdit, L"999", text(HxPermItemDbGetMaxItemCount()), L"無効な最大アイテム数です"},
        {kRoundingEdit, L"8", L"0", L"無効な丸め桁数です"},
        {kAngleRoundingEdit, L"", L"1", L"無効な丸め桁数です"},
    };
    const ImportRecord before = record;
    const INT_PTR result = Run([&](HWND dialog) {
        for (const auto& row : kRows) Type(dialog, row.edit, row.bad);
        Click(dialog, kFillRadio);
        Click(dialog, kKeepParametersCheck);
        for (const auto& row : kRows) {
            Type(dialog, row.edit, row.bad);
            Focus(dialog, kAngleRoundingEdit);
            Click(dialog, IDOK);
            Expect(L"読込み 変換パラメータ", row.message, MB_ICONWARNING, IDOK);
            EXPECT_EQ(kSplitCountEdit, FocusId());
            Type(dialog, row.edit, row.good);
        }
    });
    EXPECT_EQ(IDCANCEL, result);
    EXPECT_TRUE(before == record);
    Words kept{};
    EXPECT_NE(0, DxfInReadParam(&kept));

    Run([&](HWND dialog) {
        for (const auto& row : kRows) Type(dialog, row.edit, row.good);
        Click(dialog, kKeepParametersCheck);
        Click(dialog, IDOK);
    });
    EXPECT_EQ(0, DxfInReadParam(&kept));
    EXPECT_EQ(0, std::memcmp(&kept, &record.params, sizeof kept));
    EXPECT_EQ(100, kept.splitItemCount);
    EXPECT_EQ(HxPermItemDbGetMaxItemCount(), kept.maxItemCount);
    EXPECT_EQ(std::pair(0, 1), std::pair(kept.roundingDigits, kept.angleDigits));
}
