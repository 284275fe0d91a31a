// The attribute conversion of an import, and the tables that are opened from it.
#include <functional>
#include <memory>

#include "dxfin_tables/KrDxfInTable.h"
#include "dxfin_tables/KrDxfInTbl_Layer.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfin_tables/KrDxfInTable.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Layer.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Line.ids.h"
#include "tests/dialogs/ImportTables.h"

using namespace kiro::drive;

namespace {

struct Choice {
    std::int32_t DxfInParamBlock::*word;
    struct {
        std::int32_t value;
        int radio;
    } rows[3];
    int count;
};
constexpr Choice kChoices[] = {
    {&DxfInParamBlock::layerTarget, {{0, 4003}, {1, 4008}}, 2},
    {&DxfInParamBlock::layerConversion, {{0, 4000}, {1, 4001}, {2, 4002}}, 3},
    {&DxfInParamBlock::lineTypeConversion, {{0, 4009}, {1, 4016}, {2, 4017}}, 3},
    {&DxfInParamBlock::lineWidthConversion, {{0, 4018}, {1, 4019}, {2, 4020}}, 3},
    {&DxfInParamBlock::colorConversion, {{0, 4021}, {1, 4022}, {2, 4023}}, 3},
    {&DxfInParamBlock::arrowConversion, {{0, 4024}, {2, 4025}}, 2},
    {&DxfInParamBlock::textWidthConversion, {{0, 4026}, {2, 4027}}, 2},
};

class ImportAttributes : public ImportTables {
  protected:
    ImportAttributes() {
        for (const Choice& choice : kChoices) record.params.*choice.word = 0;
        record.params.convertLayerNames = 0;
        record.params.defaultLineWeight = 1;
    }
    // Confirms the editor that a button opens.
    static void Edit(HWND hub, int button) {
        Click(hub, button);
        const HWND editor = Settle();
        ASSERT_NE(hub, editor);
        Click(editor, IDOK);
        ASSERT_EQ(hub, Settle());
    }
};

}  // namespace

TEST_F(ImportAttributes, RadiosShowTheBlockAndSetIt) {
    DxfInParamBlock& params = record.params;
    for (int round = 0; round < 4; ++round) {
        const bool unknown = round == 3;  // values that no button has: the first is shown
        const auto row = [](const Choice& choice, int step) { return choice.rows[step % choice.count]; };
        for (const Choice& choice : kChoices) params.*choice.word = unknown ? 7 : row(choice, round).value;
        params.convertLayerNames = round % 2;
        params.defaultLineWeight = unknown ? 17 : 5 + round;
        const DxfInParamBlock before = params;
        Attributes([&](HWND dialog) {
            for (const Choice& choice : kChoices) {
                for (int k = 0; k < choice.count; ++k) {
                    EXPECT_EQ(k == (unknown ? 0 : round % choice.count), IsChecked(dialog, choice.rows[k].radio))
                        << choice.rows[k].radio;
                }
            }
            EXPECT_EQ(round % 2 == 1, IsChecked(dialog, kLayerNamesCheck));
            EXPECT_EQ(16u, Items(dialog, kDefaultWeightCombo).size());
            EXPECT_EQ(L"16", Items(dialog, kDefaultWeightCombo).back());
            EXPECT_EQ(unknown ? 0 : 4 + round, Picked(dialog, kDefaultWeightCombo));
            EXPECT_EQ(unknown || round == 0, IsEnabled(dialog, kTargetClassRadio));
            Click(dialog, kLayerAutoRadio);  // the target can be chosen
            for (const Choice& choice : kChoices) Click(dialog, row(choice, round + 1).radio);
            Click(dialog, kLayerNamesCheck);
            Pick(dialog, kDefaultWeightCombo, 15 - round);
            Click(dialog, IDOK);
        });
        for (const Choice& choice : kChoices) EXPECT_EQ(row(choice, round + 1).value, params.*choice.word);
        EXPECT_EQ(1 - round % 2, params.convertLayerNames);
        EXPECT_EQ(16 - round, params.defaultLineWeight);
        // The parameter dialog's words are not touched.
        EXPECT_EQ(0, std::memcmp(&before, &params, offsetof(DxfInParamBlock, layerConversion)));
        EXPECT_EQ(before.fontTablePresent, params.fontTablePresent);
    }
}

TEST_F(ImportAttributes, LayerChoiceDecidesWhatCanBeDoneAndCancelUndoesIt) {
    for (const bool closeBox : {false, true}) {
        const ImportRecord before = record;
        Attributes([&](HWND dialog) {
            for (const int radio : {kLayerAutoRadio, kLayerBothRadio, kLayerAutoRadio, kLayerTableRadio}) {
                Click(dialog, radio);
                const bool automatic = radio == kLayerAutoRadio;
                ExpectEnabled(dialog, {{kTargetClassRadio, automatic},
                                       {kTargetRevisionRadio, automatic},
                                       {kLayerNewButton, !automatic},
                                       {kLayerChangeButton, !automatic},
                                       {kColorNewButton, true},
                                       {kColorChangeButton, true}});
            }
            for (const int id : {kColorTableRadio, kLayerNamesCheck, kKeepSettingsCheck}) Click(dialog, id);
            Pick(dialog, kDefaultWeightCombo, 9);
            closeBox ? CloseBox(dialog) : Click(dialog, IDCANCEL);
        });
        EXPECT_TRUE(before == record);
        DxfInParamBlock kept{};
        EXPECT_NE(0, DxfInReadParam(&kept));
    }
}

TEST_F(ImportAttributes, TextWidthsNeedTheFontTable) {
    const std::wstring missing = L"ファイル DXFFONTTABLE.DAT がありません。";
    record.params.fontTablePresent = 0;
    Attributes([&](HWND dialog) {
        // The other choice would only be refused.
        EXPECT_TRUE(IsChecked(dialog, kTextWidthTableRadio) && !IsChecked(dialog, kTextWidthAutoRadio));
        Click(dialog, kTextWidthAutoRadio);
        Expect(L"属性変換", missing, MB_ICONWARNING, IDOK);
        EXPECT_EQ(dialog, Settle());
        EXPECT_TRUE(IsChecked(dialog, kTextWidthTableRadio) && !IsChecked(dialog, kTextWidthAutoRadio));
        EXPECT_TRUE(IsEnabled(dialog, kTextWidthChangeButton));
        EXPECT_EQ(kTextWidthTableRadio, FocusId());
        Click(dialog, IDOK);
    });
    EXPECT_EQ(2, record.params.textWidthConversion);
    record.params.fontTablePresent = 1;
    Attributes([&](HWND dialog) {
        EXPECT_TRUE(IsEnabled(dialog, kTextWidthChangeButton));
        Click(dialog, kTextWidthAutoRadio);
        EXPECT_EQ(dialog, Settle());
        EXPECT_FALSE(IsEnabled(dialog, kTextWidthChangeButton));
        Click(dialog, IDOK);
    });
    EXPECT_EQ(0, record.params.textWidthConversion);
}

TEST_F(ImportAttributes, KeepsTheSettingsWhereItIsWanted) {
    const auto obstacle = Write(L"settings", "a file where the defaults have their folder");
    const ImportRecord before = record;
    DxfInParamBlock kept{};
    Attributes([&](HWND dialog) {
        Click(dialog, kArrowTableRadio);
        Click(dialog, kKeepSettingsCheck);
        Click(dialog, IDOK);
        Expect(L"属性変換", L"設定を保存できません。", MB_ICONWARNING, IDOK);
        EXPECT_EQ(dialog, Settle());
        EXPECT_TRUE(before == record);
        std::filesystem::remove(obstacle);
        EXPECT_EQ(0, DxfInWriteParam());
        EXPECT_EQ(0, DxfInReadParam(&kept));
        EXPECT_EQ(0, kept.arrowConversion);  // the next import's are those before
        Click(dialog, IDOK);
    });
    ASSERT_EQ(0, DxfInReadParam(&kept));
    EXPECT_EQ(2, kept.arrowConversion);
    EXPECT_EQ(0, std::memcmp(&record.params, &kept, sizeof kept));
    Attributes([&](HWND dialog) {
        EXPECT_FALSE(IsChecked(dialog, kKeepSettingsCheck));
        Click(dialog, kArrowAutoRadio);
        Click(dialog, IDOK);
    });
    EXPECT_EQ(0, record.params.arrowConversion);
    ASSERT_EQ(0, DxfInReadParam(&kept));
    EXPECT_EQ(2, kept.arrowConversion);
    // A host without a block starts with what is kept.
    record.info.input.importParams = nullptr;
    Attributes([&](HWND dialog) {
        EXPECT_TRUE(IsChecked(dialog, kArrowTableRadio));
        Click(dialog, IDOK);
    });
}

TEST_F(ImportAttributes, LabelsExplainTheirGroups) {
    const std::pair<int, const wchar_t*> rows[] = {
        {kLayerHelpLabel, L"レイヤの変換"},           {kLineTypeHelpLabel, L"線種の変換"},
        {kLineWidthHelpLabel, L"線幅の変換"},         {kColorHelpLabel, L"色の変換"},
        {kArrowHelpLabel, L"寸法線などの矢印の変換"}, {kTextWidthHelpLabel, L"文字幅の変換"}};
    Attributes([&](HWND dialog) {
        for (const auto& [label, first] : rows) {
            MoveMouse(Centre(Control(dialog, label)));
            const std::wstring line = first + std::wstring(L"方法を選択します。");
            Until("the explanation", [&] { return FirstLineOfPopup(dialog) == line; });
            EXPECT_EQ(dialog, Settle());
        }
        MoveMouse(Centre(Control(dialog, kKeepSettingsCheck)));
        Until("no explanation", [&] { return Popups(dialog).empty(); });
        Click(dialog, IDCANCEL);
    });
}

TEST_F(ImportAttributes, NewLayerTablesReplaceNoFileUnasked) {
    const std::wstring caption = L"レイヤ変換テーブル";
    Attributes([&](HWND dialog) {
        Click(dialog, kColorNewButton);
        const HWND chooser = Settle();
        EXPECT_EQ(caption, Text(chooser));
        EXPECT_EQ(0u, Text(chooser, 0x470).find(caption + L" (DXFKIRO_LAYER*)"));
        Click(chooser, IDCANCEL);
        ASSERT_EQ(dialog, Settle());

        Choose(dialog, kColorNewButton, kLayerFile);  // there is none yet
        EXPECT_EQ(L"レイヤ割当て・色割当て", Text(Settle()));
        Click(Settle(), IDCANCEL);
        EXPECT_FALSE(std::filesystem::exists(TableFile(kLayerFile)));

        // The record of the file that is there is not read.
        WriteTable(kLayerFile, "LAYER-SWITCH  1\n");
        const std::wstring question =
            TableFile(kLayerFile).wstring() + L"\n\nファイルが既に存在します。上書きしますか。";
        Click(dialog, kLayerTableRadio);
        for (const int button : {kLayerNewButton, kColorNewButton}) {
            Choose(dialog, button, kLayerFile);
            EXPECT_EQ(question, ReadBox().text);
            Key(VK_RETURN);  // once too often
            ASSERT_EQ(dialog, Settle());
            Choose(dialog, button, kLayerFile);
            Expect(caption, question, MB_ICONERROR, IDYES);
            EXPECT_TRUE(IsChecked(Settle(), kLayersToClassesRadio));
            Click(Settle(), IDCANCEL);
            ASSERT_EQ(dialog, Settle());
        }
        EXPECT_EQ("LAYER-SWITCH  1\n", Bytes(kLayerFile));

        // Under another name it would not be listed. The chooser comes again.
        Choose(dialog, kColorNewButton, L"表");
        Expect(caption, L"レイヤ変換テーブルの名前は「DXFKIRO_LAYER」で始めてください。", MB_ICONWARNING, IDOK);
        Click(Settle(), IDCANCEL);
        ASSERT_EQ(dialog, Settle());

        // A name of 130 characters has no room in the record when each takes two bytes.
        Choose(dialog, kColorNewButton, (home / (L"dxfkiro_layer" + std::wstring(130, L'表'))).wstring());
        Expect(caption, L"ファイル名が長すぎます", MB_ICONWARNING, IDOK);
        ASSERT_EQ(dialog, Settle());
        Click(dialog, IDCANCEL);
    });
}

TEST_F(ImportAttributes, MissingLayerTablesCanBeMade) {
    Attributes([&](HWND dialog) {
        Click(dialog, kLayerTableRadio);
        for (const int button : {kLayerChangeButton, kColorChangeButton}) {
            for (const int answer : {IDNO, IDYES}) {
                Choose(dialog, button, kLayerFile);
                Expect(L"レイヤ変換テーブル",
                       TableFile(kLayerFile).wstring() + L"\n\nファイルが見つかりません。作成しますか。", MB_ICONERROR,
                       answer);
                if (answer == IDNO) continue;
                EXPECT_TRUE(IsChecked(Settle(), kLayersToClassesRadio));
                Click(Settle(), button == kLayerChangeButton ? IDCANCEL : IDOK);
                EXPECT_FALSE(std::filesystem::exists(TableFile(kLayerFile)));
            }
        }
        Answer(ReadBox(), IDYES);
        ASSERT_EQ(dialog, Settle());
        EXPECT_NE(std::string::npos, Bytes(kLayerFile).find("LAYER-SWITCH 0"));
        Click(dialog, IDCANCEL);
    });
}

TEST_F(ImportAttributes, LayersAndColorsBecomeDifferentAttributes) {
    WriteTable(kLayerFile, "LAYER-SWITCH  1\n");
    const auto expect = [](HWND hub, bool revisions) {
        EXPECT_EQ(revisions, IsChecked(hub, kLayersToRevisionsRadio));
        EXPECT_EQ(!revisions, IsChecked(hub, kLayersToClassesRadio));
        ExpectEnabled(hub, {{kLayerClassButton, !revisions},
                            {kColorRevisionButton, !revisions},
                            {kColorClassButton, revisions},
                            {kLayerRevisionButton, revisions}});
    };
    Attributes([&](HWND dialog) {
        OpenLayers(dialog, [&](HWND hub) {
            expect(hub, true);
            Click(hub, kLayersToClassesRadio);
            expect(hub, false);
            Click(hub, kLayersToRevisionsRadio);
            expect(hub, true);
            Click(hub, kLayersToClassesRadio);
            Click(hub, IDOK);
            Expect(L"レイヤ割当て・色割当て", kSaveQuestion, MB_ICONQUESTION, IDYES);
        });
        EXPECT_NE(std::string::npos, Bytes(kLayerFile).find("LAYER-SWITCH 0"));
        OpenLayers(dialog, [&](HWND hub) {
            expect(hub, false);
            Click(hub, IDCANCEL);
        });
        Click(dialog, IDCANCEL);
    });
}

TEST_F(ImportAttributes, LayerTableIsSavedAsTheUserSays) {
    const std::wstring caption = L"レイヤ割当て・色割当て";
    const std::wstring changed = L"テーブルが変更されています。\n" + std::wstring(kSaveQuestion);
    Attributes([&](HWND dialog) {
        const auto run = [&](int change, int button, const std::wstring& question, int answer) {
            WriteTable(kLayerFile, "LAYER-SWITCH  1\n");
            OpenLayers(dialog, [&](HWND hub) {
                if (change == kLayersToClassesRadio) Click(hub, change);
                for (const int edit : {kLayerRevisionButton, kColorClassButton}) {  // looked at, and left
                    if (change) break;
                    Click(hub, edit);
                    Click(Settle(), IDCANCEL);
                }
                if (change == kLayerRevisionButton || change == kColorClassButton) Edit(hub, change);
                Click(hub, button);
                if (!question.empty()) Expect(caption, question, MB_ICONQUESTION, answer);
            });
            return Bytes(kLayerFile) != "LAYER-SWITCH  1\n";
        };
        EXPECT_FALSE(run(0, IDOK, kSaveQuestion, IDNO));  // asked though nothing has changed
        EXPECT_TRUE(run(0, IDOK, kSaveQuestion, IDYES));
        EXPECT_FALSE(run(0, IDCANCEL, L"", 0));
        for (const int change : {kLayersToClassesRadio, kLayerRevisionButton, kColorClassButton}) {
            EXPECT_FALSE(run(change, IDOK, kSaveQuestion, IDNO)) << change;
            EXPECT_FALSE(run(change, IDCANCEL, changed, IDNO)) << change;
            EXPECT_TRUE(run(change, IDCANCEL, changed, IDYES)) << change;
        }
        // What cannot be written stays open and changed.
        WriteTable(kLayerFile, "LAYER-SWITCH  1\n");
        OpenLayers(dialog, [&](HWND hub) {
            Click(hub, kLayersToClassesRadio);
            std::filesystem::remove(TableFile(kLayerFile));
            std::filesystem::create_directory(TableFile(kLayerFile));
            for (const int button : {IDOK, IDCANCEL}) {
                Click(hub, button);
                Expect(caption, button == IDOK ? kSaveQuestion : changed, MB_ICONQUESTION, IDYES);
                Answer(ReadBox(), IDOK);
                ASSERT_EQ(hub, Settle());
            }
            Click(hub, IDCANCEL);
            Expect(caption, changed, MB_ICONQUESTION, IDNO);
        });
        Click(dialog, IDCANCEL);
    });
}

TEST_F(ImportAttributes, LineTableConvertsColorsOrWidths) {
    const std::wstring name = L"DXFKIRO_LINE", file = kTables + name;
    // Polylines, colours, widths: the radio button that is selected and the button that it enables.
    const auto expect = [](HWND hub, bool polylines, bool colors, bool widths) {
        EXPECT_TRUE(IsChecked(hub, polylines ? kPolylinesOnRadio : kPolylinesOffRadio));
        EXPECT_TRUE(IsChecked(hub, colors ? kColorsOnRadio : kColorsOffRadio));
        EXPECT_TRUE(IsChecked(hub, widths ? kWidthsOnRadio : kWidthsOffRadio));
        ExpectEnabled(hub, {{kLineTypesButton, true},
                            {kPolylineWidthsButton, polylines},
                            {kColorWidthsButton, colors},
                            {kLineWidthsButton, widths}});
    };
    const auto open = [](HWND dialog, int button) {
        Click(dialog, button);
        const HWND hub = Settle();
        EXPECT_EQ(L"線種・線幅割当て", Text(hub));
        return hub;
    };
    const std::string both = "POLWIDTH-SWITCH  1\nCOLWIDTH-SWITCH  1\nWIDWIDTH-SWITCH  1\n";
    Write(file, both);
    Attributes([&](HWND dialog) {
        HWND hub = open(dialog, kLineTypeChangeButton);
        expect(hub, true, false, true);
        Click(hub, kPolylinesOffRadio);
        expect(hub, false, false, true);
        Click(hub, kColorsOnRadio);
        expect(hub, false, true, false);
        Click(hub, kWidthsOffRadio);  // off already: the other stays on
        expect(hub, false, true, false);
        Click(hub, kWidthsOnRadio);
        expect(hub, false, false, true);
        Click(hub, kColorsOffRadio);
        expect(hub, false, false, true);
        Click(hub, kWidthsOffRadio);
        expect(hub, false, false, false);
        Click(hub, kColorsOnRadio);
        for (const int button : {kLineTypesButton, kColorWidthsButton}) Edit(hub, button);
        Click(hub, IDCANCEL);  // without a question
        ASSERT_EQ(dialog, Settle());
        EXPECT_EQ(both, Bytes(name.c_str()));

        for (const int answer : {IDNO, IDYES}) {
            hub = open(dialog, kLineWidthChangeButton);
            expect(hub, true, false, true);
            for (const int button : {kPolylineWidthsButton, kLineWidthsButton}) Edit(hub, button);
            Click(hub, kColorsOnRadio);
            Click(hub, IDOK);
            Expect(L"線種・線幅割当て", kSaveQuestion, MB_ICONQUESTION, answer);
            ASSERT_EQ(dialog, Settle());
            EXPECT_EQ(answer == IDNO, Bytes(name.c_str()) == both);
        }
        hub = open(dialog, kLineTypeChangeButton);
        expect(hub, true, true, false);
        for (const int radio : {kPolylinesOffRadio, kColorsOffRadio}) Click(hub, radio);
        Click(hub, IDOK);
        Answer(ReadBox(), IDYES);
        hub = open(dialog, kLineTypeChangeButton);
        expect(hub, false, false, false);
        std::filesystem::remove(home / file);
        std::filesystem::create_directory(home / file);
        Click(hub, IDOK);
        Answer(ReadBox(), IDYES);
        Answer(ReadBox(), IDOK);
        ASSERT_EQ(hub, Settle());
        Click(hub, IDCANCEL);
        ASSERT_EQ(dialog, Settle());
        Click(dialog, IDCANCEL);
    });
}

// What no command opens: the dialogs themselves, with the library's templates.
TEST_F(ImportAttributes, LayerTableOfOneMode) {
    const kiro::ui::ScopedResourceModule module(GetModuleHandleW(L"kirovanteo.dll"));
    const auto table = std::make_unique<DxfInLayerTable>();
    WriteFixedText(table->fileName, "DXFKIRO_LAYER");
    for (const bool revisions : {false, true}) {
        // The file says the opposite.
        WriteTable(kLayerFile, revisions ? "LAYER-SWITCH  0\n" : "LAYER-SWITCH  1\n");
        Drive([&] { return KrDxfInTbl_Layer(*table, 0, revisions).DoModal(owner); },
              [&] {
                  const HWND hub = Settle();
                  EXPECT_TRUE(IsChecked(hub, revisions ? kLayersToRevisionsRadio : kLayersToClassesRadio));
                  ExpectEnabled(hub, {{kLayersToClassesRadio, !revisions},
                                      {kLayersToRevisionsRadio, revisions},
                                      {kLayerClassButton, !revisions},
                                      {kLayerRevisionButton, revisions}});
                  Click(hub, IDCANCEL);
              });
    }
}

TEST_F(ImportAttributes, LauncherOpensEveryTable) {
    const kiro::ui::ScopedResourceModule module(GetModuleHandleW(L"kirovanteo.dll"));
    const auto layers = WriteTable(kLayerFile, "");
    Drive([&] { return KrDxfInTable().DoModal(owner); },
          [&] {
              const HWND launcher = Settle();
              EXPECT_FALSE(IsShown(launcher, IDOK));
              for (const auto& [button, title] :
                   {std::pair(kLineTableButton, L"線種・線幅割当て"),
                    std::pair(kFontTableButton, L"文字フォント割当て"), std::pair(kArrowTableButton, L"矢印割当て")}) {
                  Click(launcher, button);
                  EXPECT_EQ(title, Text(Settle()));
                  Click(Settle(), IDCANCEL);
                  ASSERT_EQ(launcher, Settle());
              }
              Choose(launcher, kChangeLayerTableButton, kLayerFile);
              EXPECT_EQ(L"レイヤ割当て・色割当て", Text(Settle()));
              Click(Settle(), IDCANCEL);
              Choose(launcher, kNewLayerTableButton, kLayerFile);
              EXPECT_EQ(layers.wstring() + L"\n\nファイルが既に存在します。上書きしますか。", ReadBox().text);
              Answer(ReadBox(), IDNO);
              Click(launcher, IDCANCEL);
          });
}
