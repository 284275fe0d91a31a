// The attribute conversion of an import, and the dialogs that own its tables' files.
#include "dxfin_tables/KrDxfInTable.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfin_tables/KrDxfInTable.ids.h"
#include "tests/DrawingText.h"
#include "tests/dialogs/ImportTables.h"

using namespace kiro::drive;

namespace {

struct Choice {
    std::int32_t DxfInParamBlock::*word;
    std::vector<std::pair<std::int32_t, int>> rows;  // value and radio
};
const Choice kChoices[] = {
    {&DxfInParamBlock::layerTarget, {{0, 4003}, {1, 4008}}},
    {&DxfInParamBlock::layerConversion, {{0, 4000}, {1, 4001}, {2, 4002}}},
    {&DxfInParamBlock::lineTypeConversion, {{0, 4009}, {1, 4016}, {2, 4017}}},
    {&DxfInParamBlock::lineWidthConversion, {{0, 4018}, {1, 4019}, {2, 4020}}},
    {&DxfInParamBlock::colorConversion, {{0, 4021}, {1, 4022}, {2, 4023}}},
    {&DxfInParamBlock::arrowConversion, {{0, 4024}, {2, 4025}}},
    {&DxfInParamBlock::textWidthConversion, {{0, 4026}, {2, 4027}}},
};

class ImportAttributes : public ImportTables {
  protected:
    ImportAttributes() {
        for (const Choice& choice : kChoices) record.params.*choice.word = 0;
        record.params.convertLayerNames = 0;
        record.params.defaultLineWeight = 1;
    }
};

}  // namespace

TEST_F(ImportAttributes, RadiosShowTheBlockAndSetIt) {
    DxfInParamBlock& params = record.params;
    for (int round = 0; round < 4; ++round) {
        const bool unknown = round == 3;  // values that no button has: the first is shown
        const auto row = [](const Choice& choice, int step) {
            return choice.rows[static_cast<std::size_t>(step) % choice.rows.size()];
        };
        for (const Choice& choice : kChoices) params.*choice.word = unknown ? 7 : row(choice, round).first;
        params.convertLayerNames = unknown ? 7 : round % 2;
        params.defaultLineWeight = unknown ? 17 : 5 + round;
        const DxfInParamBlock before = params;
        Attributes([&](HWND dialog) {
            for (const Choice& choice : kChoices) {
                const int shown = row(choice, unknown ? 0 : round).second;
                for (const auto& [value, radio] : choice.rows) EXPECT_EQ(radio == shown, IsChecked(dialog, radio));
            }
            EXPECT_EQ(IsChecked(dialog, kTextWidthTableRadio), IsEnabled(dialog, kTextWidthChangeButton));
            EXPECT_EQ(round % 2 == 1, IsChecked(dialog, kLayerNamesCheck));
            EXPECT_EQ(unknown ? 0 : 4 + round, Picked(dialog, kDefaultWeightCombo));
            Click(dialog, kLayerAutoRadio);  // the target can be chosen
            for (const Choice& choice : kChoices) Click(dialog, row(choice, round + 1).second);
            Click(dialog, kLayerNamesCheck);
            Pick(dialog, kDefaultWeightCombo, 15 - 5 * round);
            Click(dialog, IDOK);
        });
        for (const Choice& choice : kChoices) EXPECT_EQ(row(choice, round + 1).first, params.*choice.word);
        EXPECT_EQ(1 - round % 2, params.convertLayerNames);
        EXPECT_EQ(16 - 5 * round, params.defaultLineWeight);
        // The parameter dialog's words are not touched.
        EXPECT_EQ(0, std::memcmp(&before, &params, offsetof(DxfInParamBlock, layerConversion)));
        EXPECT_EQ(before.fontTablePresent, params.fontTablePresent);
    }
    DxfInParamBlock kept{};
    EXPECT_NE(0, DxfInReadParam(&kept)) << "kept though nobody wanted it";
}

TEST_F(ImportAttributes, LayerChoiceDecidesWhatCanBeDoneAndCancelUndoesIt) {
    const ImportRecord before = record;
    Attributes([&](HWND dialog) {
        for (const int radio : {kLayerBothRadio, kLayerAutoRadio, kLayerTableRadio}) {
            Click(dialog, radio);
            const bool automatic = radio == kLayerAutoRadio;
            ExpectEnabled(dialog, {{kTargetClassRadio, automatic},
                                   {kTargetRevisionRadio, automatic},
                                   {kLayerNewButton, !automatic},
                                   {kLayerChangeButton, !automatic},
                                   {kColorNewButton, true}});
        }
        for (const int id : {kColorTableRadio, kLayerNamesCheck, kKeepSettingsCheck}) Click(dialog, id);
    });
    EXPECT_TRUE(before == record);
    DxfInParamBlock kept{};
    EXPECT_NE(0, DxfInReadParam(&kept));
}

TEST_F(ImportAttributes, TextWidthsNeedTheFontTable) {
    record.params.fontTablePresent = 0;
    Attributes([&](HWND dialog) {
        // The other choice would only be refused.
        EXPECT_TRUE(IsChecked(dialog, kTextWidthTableRadio) && !IsChecked(dialog, kTextWidthAutoRadio));
        Click(dialog, kTextWidthAutoRadio);
        Expect(L"属性変換", L"ファイル DXFFONTTABLE.DAT がありません。", MB_ICONWARNING, IDOK);
        EXPECT_EQ(dialog, Settle());
        EXPECT_TRUE(IsChecked(dialog, kTextWidthTableRadio) && !IsChecked(dialog, kTextWidthAutoRadio));
        EXPECT_TRUE(IsEnabled(dialog, kTextWidthChangeButton));
        EXPECT_EQ(kTextWidthTableRadio, FocusId());
        Click(dialog, IDOK);
    });
    EXPECT_EQ(2, record.params.textWidthConversion);
    record.params.fontTablePresent = 1;
    Attributes([&](HWND dialog) {
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
}

TEST_F(ImportAttributes, LeavingALabelEndsItsExplanation) {
    Attributes([&](HWND dialog) {
        MoveMouse(Centre(Control(dialog, kLayerHelpLabel)));
        Until("an explanation", [&] { return !Popups(dialog).empty(); });
        MoveMouse(Centre(Control(dialog, kKeepSettingsCheck)));
        Until("no explanation", [&] { return Popups(dialog).empty(); });
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
        EXPECT_EQ(kLayerCaption, Text(Settle()));
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
    });
}

TEST_F(ImportAttributes, MissingLayerTablesCanBeMade) {
    Attributes([&](HWND dialog) {
        Click(dialog, kLayerTableRadio);
        for (const auto& [button, answer] :
             {std::pair(kLayerChangeButton, IDNO), std::pair(kColorChangeButton, IDYES)}) {
            Choose(dialog, button, kLayerFile);
            EXPECT_EQ(IDYES, ReadBox().defaultButton);  // nothing is lost
            Expect(L"レイヤ変換テーブル",
                   TableFile(kLayerFile).wstring() + L"\n\nファイルが見つかりません。作成しますか。", MB_ICONERROR,
                   answer);
        }
        EXPECT_TRUE(IsChecked(Settle(), kLayersToClassesRadio) && IsEnabled(Settle(), kLayersToRevisionsRadio));
        Click(Settle(), IDOK);
        EXPECT_FALSE(std::filesystem::exists(TableFile(kLayerFile)));
        Answer(ReadBox(), IDYES);
        ASSERT_EQ(dialog, Settle());
        EXPECT_TRUE(Has(kLayerFile, "LAYER-SWITCH 0"));
    });
}

TEST_F(ImportAttributes, LayersAndColorsBecomeDifferentAttributes) {
    const auto expect = [](HWND hub, bool revisions) {
        EXPECT_EQ(revisions, IsChecked(hub, kLayersToRevisionsRadio));
        EXPECT_EQ(!revisions, IsChecked(hub, kLayersToClassesRadio));
        ExpectEnabled(hub, {{kLayerClassButton, !revisions},
                            {kColorRevisionButton, !revisions},
                            {kColorClassButton, revisions},
                            {kLayerRevisionButton, revisions}});
    };
    WriteTable(kLayerFile, "LAYER-SWITCH  1\n");
    Open(kLayerFile, [&](HWND hub) {
        expect(hub, true);
        Click(hub, kLayersToClassesRadio);
        expect(hub, false);
        Click(hub, IDCANCEL);
        Answer(ReadBox(), IDNO);
    });
    // Where only one of the modes is allowed, whatever the file says.
    const auto table = std::make_unique<DxfInLayerTable>();
    WriteFixedText(table->fileName, "DXFKIRO_LAYER");
    for (const bool revisions : {false, true}) {
        WriteTable(kLayerFile, revisions ? "LAYER-SWITCH  0\n" : "LAYER-SWITCH  1\n");
        KrDxfInTbl_Layer dialog(*table, 0, revisions);
        Play(dialog, [&](HWND hub) {
            expect(hub, revisions);
            ExpectEnabled(hub, {{kLayersToClassesRadio, !revisions}, {kLayersToRevisionsRadio, revisions}});
        });
    }
}

TEST_F(ImportAttributes, LayerTableIsSavedAsTheUserSays) {
    const std::wstring changed = L"テーブルが変更されています。\n" + std::wstring(kSaveQuestion);
    const std::string before = "LAYER-SWITCH  1\n";
    const auto run = [&](int change, int button, const std::wstring& question, int answer) {
        WriteTable(kLayerFile, before);
        Open(kLayerFile, [&](HWND hub) {
            if (change == kLayersToClassesRadio) Click(hub, change);
            if (change != kLayersToClassesRadio) {  // an editor: confirmed, or looked at and left
                Click(hub, change ? change : kLayerRevisionButton);
                Click(Settle(), change ? IDOK : IDCANCEL);
            }
            Click(hub, button);
            if (!question.empty()) Expect(kLayerCaption, question, MB_ICONQUESTION, answer);
        });
        return Bytes(kLayerFile) != before;
    };
    EXPECT_FALSE(run(0, IDOK, kSaveQuestion, IDNO));  // asked though nothing has changed
    EXPECT_TRUE(run(0, IDOK, kSaveQuestion, IDYES));
    EXPECT_FALSE(run(0, IDCANCEL, L"", 0));
    EXPECT_FALSE(run(kLayersToClassesRadio, IDCANCEL, changed, IDNO));
    for (const int change : {kLayersToClassesRadio, kLayerRevisionButton, kColorClassButton})
        EXPECT_TRUE(run(change, IDCANCEL, changed, IDYES)) << change;
    // What cannot be written stays open and changed.
    WriteTable(kLayerFile, before);
    Open(kLayerFile, [&](HWND hub) {
        Click(hub, kLayersToClassesRadio);
        Obstruct(kLayerFile);
        for (const int button : {IDOK, IDCANCEL}) {
            Click(hub, button);
            Answer(ReadBox(), IDYES);
            Answer(ReadBox(), IDOK);
            ASSERT_EQ(hub, Settle());
        }
        Click(hub, IDCANCEL);
        Expect(kLayerCaption, changed, MB_ICONQUESTION, IDNO);
    });
}

TEST_F(ImportAttributes, LineTableConvertsColorsOrWidths) {
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
    const std::string both = "POLWIDTH-SWITCH  1\nCOLWIDTH-SWITCH  1\nWIDWIDTH-SWITCH  1\n";
    WriteTable(kLineFile, both);
    Open(kLineFile, [&](HWND hub) {
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
    });
    EXPECT_EQ(both, Bytes(kLineFile));
    Open(kLineFile, [&](HWND hub) {
        Click(hub, kColorsOnRadio);
        Click(hub, IDOK);
        Expect(L"線種・線幅割当て", kSaveQuestion, MB_ICONQUESTION, IDYES);
    });
    Open(kLineFile, [&](HWND hub) {
        expect(hub, true, true, false);
        for (const int radio : {kPolylinesOffRadio, kColorsOffRadio}) Click(hub, radio);
        Click(hub, IDOK);
        Answer(ReadBox(), IDYES);
    });
    Open(kLineFile, [&](HWND hub) { expect(hub, false, false, false); });
}

// From every button the dialog that it is for.
TEST_F(ImportAttributes, EveryTableIsOpenedByItsButtons) {
    const auto layers = WriteTable(kLayerFile, "");
    const auto opens = [this](HWND dialog, int button, const std::wstring& title) {
        Click(dialog, button);
        const HWND opened = Settle();
        EXPECT_EQ(title, Text(opened)) << button;
        if (!drawing.empty()) {  // comes with it
            if (title == L"線種・線幅割当て") Click(opened, kLineTypesButton);
            Key(VK_F8);
            EXPECT_EQ(0u, Guidance(Settle()).find(L"plan.dxf：")) << button;
        }
        while (Settle() != dialog) Click(Settle(), IDCANCEL);
    };
    drawing = Write(L"plan.dxf", Drawing("", "")).generic_string();
    Attributes([&](HWND dialog) {
        Click(dialog, kTextWidthTableRadio);
        for (const int button : {kLineTypeChangeButton, kLineWidthChangeButton})
            opens(dialog, button, L"線種・線幅割当て");
        opens(dialog, kArrowChangeButton, L"矢印割当て");
        opens(dialog, kTextWidthChangeButton, L"文字フォント割当て");
    });
    drawing.clear();
    KrDxfInTable table;
    Play(table, [&](HWND launcher) {
        opens(launcher, kLineTableButton, L"線種・線幅割当て");
        opens(launcher, kFontTableButton, L"文字フォント割当て");
        opens(launcher, kArrowTableButton, L"矢印割当て");
        Choose(launcher, kChangeLayerTableButton, kLayerFile);
        EXPECT_EQ(kLayerCaption, Text(Settle()));
        Click(Settle(), IDCANCEL);
        Choose(launcher, kNewLayerTableButton, kLayerFile);
        EXPECT_EQ(layers.wstring() + L"\n\nファイルが既に存在します。上書きしますか。", ReadBox().text);
        Answer(ReadBox(), IDNO);
    });
}
