// The parts that dialogs are made of, in a dialog with two grids, words of a block and a file that is written.
#include "driver/GridDriver.h"
#include "tests/dialogs/TestHost.h"
#include "ui/FileNameField.h"
#include "ui/Grid.h"
#include "ui/WordChoices.h"

using namespace kiro::drive;

namespace {

constexpr int kTemplate = 101;
constexpr int kPatterns = 4029, kPitches = 4060;
constexpr int kOne = 201, kTwo = 202, kCount = 203, kDigits = 204, kFile = 205, kRecent = 206, kBrowse = 207;

constexpr kiro::ui::GridColumn kNameColumns[] = {{"番号", 1.0}, {"線種名", 3.0, 20, "線種名を入力してください"}};
constexpr kiro::ui::GridColumn kPitchColumns[] = {{"描画長さ", 1.0, 10},
                                                  {"色", 1.0, 4, "", {0, 255}, "色を選択してください。"}};

struct NameRow : kiro::ui::GridRow<2> {
    static NameRow New() { return {}; }
};
struct Words {
    std::int32_t mode;
    std::int32_t count;
    std::int32_t digits;
};

class PartsDialog final : public kiro::ui::HostDialog {
  public:
    PartsDialog()
        : HostDialog(kTemplate),
          patterns(*this, kPatterns, kNameColumns, names),
          pitches(*this, kPitches, kPitchColumns, values),
          words_(*this),
          file_(
              *this, Utility(), {kFile, kRecent, kBrowse},
              [] {
                  return kiro::ui::FileNameField::Place{"#DXF#", "#DXF#", false, "ＤＸＦファイル", kKrChooseNew};
              },
              kiro::ui::FileNameField::kNoName) {
        for (const char* name : {"実線", "破線", "使用"}) {
            NameRow row;
            row[1] = name;
            names.Add(row);
        }
        for (int i = 0; i < 4; ++i) values.Add({{"1", "255"}});
        patterns.NumberRows();
        patterns.OfferRowMenu({0, false, [this](int row) { return MayDelete(row); }, nullptr});
        patterns.CheckRowsWith([](const kiro::ui::RowCheck& check) {
            if (check.Given(1, "線種名が入力されていません。 %d"))
                check.Unlike(1, {"線種名が重複しています。 %d - %d", true});
        });
        pitches.CheckRowsWith([](const kiro::ui::RowCheck& check) {
            check.Real(0, 0.1, 999.0, "無効な描画ピッチです。 %d");
            check.Integer(1, 0, 255, "無効な色番号です。");
        });
        pitches.OnCellChanged([this](int row, int column) { changed.push_back({row, column}); });
        pitches.OnMarked([this] { ++marked; });
        words_.Radios(&Words::mode, kiro::ui::RadioGroup(*this, {kOne, kTwo}), {1, 4}, -1);
        words_.Number(&Words::count, kCount, 100, 5000, "無効な分割アイテム数です");
        words_.Number(&Words::digits, kDigits, 0, 7, "無効な丸め桁数です");
    }

    kiro::ui::GridRows<NameRow> names;
    kiro::ui::GridRows<kiro::ui::GridRow<2>> values;
    kiro::ui::Grid patterns;
    kiro::ui::Grid pitches;
    Words block{7, 50, 3};
    std::vector<std::pair<int, int>> changed;
    int marked = 0;
    std::vector<int> selected;
    std::string output;

  private:
    bool MayDelete(int row) {
        if (names[row][1] != "使用") return true;
        kiro::ui::Tell(Handle(), "使用されています。削除できません。", "線種のカスタマイズ", kiro::ui::Icon::kError);
        return false;
    }
    void OnInit() override {
        InitUtility();
        patterns.Init(4);
        pitches.Init(4, kKrSelectMultiple);
        words_.Show(block);
        file_.Init();
    }
    void OnOk() override {
        // Both are checked; the second finds everything.
        const bool first = patterns.Check();
        const bool second = pitches.Check(kiro::ui::Grid::Extent::kAll);
        if (!first) return patterns.ShowFault();
        if (!second) return pitches.ShowFault(pitches.Faults().size() - 1);
        if (const auto fault = words_.FirstFault(Utility())) {
            Utility().ErrorText(fault->message);
            return FocusTo(fault->editId);
        }
        if (!file_.Confirm("書込み")) return;
        words_.Read(block);
        for (int row = 0; row < pitches.Rows(); ++row) {
            if (pitches.Control().GetSelectFlag(row)) selected.push_back(row);
        }
        output = file_.InternalPath();
        End(IDOK);
    }

    kiro::ui::WordChoices<Words> words_;
    kiro::ui::FileNameField file_;
};

class Parts : public TestHost {
  protected:
    INT_PTR Play(const std::function<void(HWND dialog)>& user) {
        const LibraryResources style;
        const kiro::ui::ScopedResourceModule templates(GetModuleHandleW(nullptr));
        return Drive([&] { return dialog.DoModal(owner); }, [&] { user(Settle()); });
    }
    PartsDialog dialog;
};

}  // namespace

TEST_F(Parts, TwoGridsAreCheckedEachInItsWay) {
    Play([&](HWND window) {
        const Grid names(window, kPatterns), values(window, kPitches);
        Change(values, 0, 0, L"0");
        Change(values, 1, 1, L"256");
        Change(values, 3, 0, L"");
        Change(names, 2, 1, L"実線");
        EXPECT_EQ((std::vector<std::pair<int, int>>{{0, 0}, {1, 1}, {3, 0}}), dialog.changed);
        Click(window, IDOK);
        EXPECT_EQ(L"線種名が重複しています。 1 - 3", Guidance(window));
        EXPECT_EQ(1u, dialog.patterns.Faults().size());
        EXPECT_EQ(3u, dialog.pitches.Faults().size());
        Change(names, 2, 1, L"点線");
        Click(window, IDOK);
        EXPECT_EQ(L"無効な描画ピッチです。 4", Guidance(window));  // the last one that was found
        Change(values, 0, 0, L"0.1");
        Change(values, 3, 0, L"999");
        Click(window, IDOK);
        EXPECT_EQ(L"無効な色番号です。", Guidance(window));  // a message without a place for the row
        Click(window, IDCANCEL);
    });
}

TEST_F(Parts, RowsThatAreUsedStay) {
    Play([&](HWND window) {
        const Grid names(window, kPatterns);
        names.Click(2, 1);
        for (const bool used : {true, false}) {
            Key(VK_APPS);
            PickMenu(2);
            if (!used) break;
            EXPECT_EQ(L"使用されています。削除できません。", ReadBox().text);
            Answer(ReadBox(), IDOK);
            EXPECT_EQ(3, names.Rows());
            EXPECT_EQ(kPatterns, FocusId());
            names.Write(L"不用");
            Key(VK_DELETE);  // the row that Enter behind the last cell has added
        }
        EXPECT_EQ(2, names.Rows());
        EXPECT_EQ(2, dialog.names.Count());
        Click(window, IDCANCEL);
    });
}

TEST_F(Parts, WordsMarksAndTheFileAreHandedOverTogether) {
    Write(L"DXF\\there.dxf", "x");
    EXPECT_EQ(IDOK, Play([&](HWND window) {
                  const Grid values(window, kPitches);
                  values.Click(1, 0);
                  values.Keys(L" ");
                  EXPECT_EQ(1, dialog.marked);
                  EXPECT_FALSE(IsChecked(window, kOne) || IsChecked(window, kTwo)) << "a value that none has";
                  Click(window, IDOK);
                  EXPECT_EQ(L"無効な分割アイテム数です", Guidance(window));
                  EXPECT_EQ(kCount, FocusId());
                  Type(window, kCount, L"100");
                  Type(window, kDigits, L"8");
                  Click(window, IDOK);
                  EXPECT_EQ(L"無効な丸め桁数です", Guidance(window));
                  EXPECT_EQ(kDigits, FocusId());
                  Type(window, kDigits, L"7");
                  Click(window, IDOK);  // no name was entered, and "" is none
                  Answer(ReadBox(), IDOK);
                  EXPECT_EQ(kFile, FocusId());
                  EXPECT_EQ(L"", Text(window, kFile));
                  Type(window, kFile, L"there.dxf");
                  Click(window, IDOK);  // whether to overwrite it
                  Answer(ReadBox(), IDNO);
                  EXPECT_EQ(kFile, FocusId());
                  Type(window, kFile, L"new.dxf");
                  Click(window, IDOK);
              }));
    EXPECT_EQ((std::vector<std::int32_t>{7, 100, 7}),
              (std::vector<std::int32_t>{dialog.block.mode, dialog.block.count, dialog.block.digits}));
    EXPECT_EQ(std::vector<int>{1}, dialog.selected);
    EXPECT_TRUE(dialog.output.ends_with("/DXF/new.dxf")) << dialog.output;
}
