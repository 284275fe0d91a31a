// The export dialog and its parameters: what follows what, the refusals in their order, and what the host receives.
#include "dxfout/KrDxfOutParam.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfout/KrDxfOut.ids.h"
#include "resources/dxfout/KrDxfOutParam.ids.h"
#include "tests/dialogs/CommandHost.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kDxfCaption[] = L"ＤＸＦ書込み", kDwgCaption[] = L"ＤＷＧ書込み";
constexpr wchar_t kParamCaption[] = L"書込み・変換パラメータ";
constexpr wchar_t kNothing[] = L"出力するアイテムがありません", kNoGx3[] = L"AutoCAD GX3 には対応していません";
constexpr wchar_t kBadPicture[] = L"無効なピクチャ番号です。（1～256）";
constexpr wchar_t kBadDivision[] = L"無効な分割数です。（４≧分割数≧２０）";
constexpr int kNames = 7, kNameSize = 65;

// The names of the blocks stand one after the other.
char* NameOf(DxfOutParamBlock& params, int index) {
    return reinterpret_cast<char*>(&params) + offsetof(DxfOutParamBlock, submodelBlock) + index * kNameSize;
}

struct ExportRecord : HostRecord<DxfOutParamBlock> {
    ExportRecord() {
        std::memset(&info, 0xA5, sizeof info);
        std::memset(&params, 0, sizeof params);
        info.output.outputIsDwg = 0;
        std::memset(info.output.layerTableFileName, 0, sizeof info.output.layerTableFileName);
        info.output.exportParams = &params;
        params.outputVersion = 3;
        params.curveDivision = 10;
        for (int i = 0; i < kNames; ++i) *NameOf(params, i) = static_cast<char>('A' + i);
    }
};

class Export : public CommandHost {
  protected:
    Export() {
        UseModel(
            u8R"({"currentPicture": 2, "pictures": [{"number": 1, "itemCount": 5}, {"number": 2, "itemCount": 7},
                     {"number": 12, "itemCount": 3}], "layouts": [{"number": 1}, {"number": 4, "name": "空",
                     "windows": [0, 257, -1, 200]}, {"number": 120, "name": "平面図", "windows": [3, 12]}]})");
    }
    int Run(const User& user) {
        return Drive([this] { return DxfOutputDlg(&record.info); }, [&] { Use(user); });
    }
    void Look(const User& user) { EXPECT_EQ(1, Run(user)); }
    // The parameters, opened as the export opens them.
    INT_PTR Parameters(const User& user) {
        KrDxfOutParam dialog(record.info, record.params);
        return Play(dialog, user);
    }
    static std::wstring CheckedOf(HWND dialog, const std::vector<int>& radios) {
        std::wstring marks;  // "x" selected, "-" cannot be
        for (const int id : radios) marks += IsChecked(dialog, id) ? L'x' : IsEnabled(dialog, id) ? L'o' : L'-';
        return marks;
    }

    ExportRecord record;
    TarnaExportView& output = record.info.output;
};

}  // namespace

TEST_F(Export, LeadsThroughAllWindows) {
    ExportRecord expected = record;
    WriteFixedText(output.layerTableFileName, "\xC9\xBD");  // EUC for 表
    const auto table = Write(L"DXF\\TABLE\\KIRODXF_LAYER1", "");
    const int result = Run([&](HWND dialog) {
        Click(dialog, kOutParametersButton);
        Click(Settle(), k2010Radio);
        Click(Settle(), IDOK);
        EXPECT_EQ(dialog, Settle());
        for (const auto& [button, title] : {std::pair(kOutAttributesButton, L"書込み：属性変換"),
                                            std::pair(kOutBatchButton, L"ＤＸＦ変換　一括変換")}) {
            Click(dialog, button);
            EXPECT_EQ(title, Text(Settle()));
            const bool lent = button == kOutBatchButton;  // the name as it is shown, and a medium of its own
            EXPECT_STREQ(lent ? "\x95\x5C" : "\xC9\xBD", output.layerTableFileName);
            if (lent) output.mediaKind = 1;
            Click(Settle(), IDCANCEL);
            EXPECT_EQ(dialog, Settle());
            EXPECT_STREQ("\xC9\xBD", output.layerTableFileName);
            EXPECT_EQ(expected.info.output.mediaKind, output.mediaKind);
        }
        Choose(dialog, kOutTableBrowseButton, table.filename());
        Click(dialog, kOutFloppyRadio);
        Play(dialog, {{kOutPictureRadio, nullptr}, {kOutPictureEdit, L" 012 "}, {kOutFileNameEdit, L" 図.dxf "}});
        Focus(dialog, kOutFileNameEdit);
        Key(VK_RETURN);
    });
    EXPECT_EQ(0, result);
    expected.params.outputVersion = 6;
    expected.params.kanjiCode = 2;
    TarnaExportView& view = expected.info.output;
    view.exportParams = &record.params;
    view.mediaKind = view.pictureMode = 1;
    view.pictureNumber = 12;
    view.drawingNumber = 0;
    WriteFixedText(view.outputFileName, (home / L"FLOPPY_WIN").generic_string() + "/\xBF\xDE.dxf");  // EUC for 図
    WriteFixedText(view.layerTableFileName, table.generic_string());
    EXPECT_TRUE(expected == record);
    Look([&](HWND dialog) {
        EXPECT_TRUE(Items(dialog, kOutRecentCombo).empty());
        Click(dialog, kOutFloppyRadio);
        Pick(dialog, kOutRecentCombo, 0);
        EXPECT_EQ(L"図.dxf", Text(dialog, kOutFileNameEdit));
        EXPECT_EQ(kOutFileNameEdit, FocusId());
    });
}

TEST_F(Export, SourceDecidesWhatIsShownAndCanBeChosen) {
    Look([&](HWND dialog) {
        const auto expect = [&](int source, const std::vector<std::wstring>& texts) {
            ExpectEnabled(dialog, {{kOutLayoutCombo, source == kOutLayoutRadio},
                                   {kOutLayoutListButton, source == kOutLayoutRadio},
                                   {kOutPictureEdit, source == kOutPictureRadio},
                                   {kOutPictureCombo, source == kOutPictureRadio},
                                   {kOutPictureListButton, source == kOutPictureRadio}});
            EXPECT_EQ(texts, (std::vector{Text(dialog, kOutCurrentEdit), Text(dialog, kOutCurrentItemsEdit),
                                          Text(dialog, kOutPictureEdit), Text(dialog, kOutPictureItemsEdit)}));
            for (const int radio : {kOutLayoutRadio, kOutCurrentRadio, kOutPictureRadio})
                EXPECT_EQ(radio == source, IsChecked(dialog, radio));
        };
        const auto chooseLast = [&](int button) {
            Click(dialog, button);
            const HWND chooser = Settle();
            ASSERT_NE(dialog, chooser);
            Key(VK_END);
            Click(chooser, IDOK);
            EXPECT_EQ(dialog, Settle());
        };
        expect(kOutCurrentRadio, {L"2", L"7", L"", L""});
        Click(dialog, kOutLayoutRadio);
        expect(kOutLayoutRadio, {L"", L"", L"", L""});
        EXPECT_EQ((std::vector<std::wstring>{L"  4 : 空", L"120 : 平面図"}), Items(dialog, kOutLayoutCombo));
        EXPECT_EQ(0, Picked(dialog, kOutLayoutCombo));
        chooseLast(kOutLayoutListButton);
        EXPECT_EQ(1, Picked(dialog, kOutLayoutCombo));
        Click(dialog, kOutPictureRadio);
        expect(kOutPictureRadio, {L"", L"", L"2", L"7"});
        for (const auto& [typed, items, picked] :
             {std::tuple(L"12", L"3", 11), {L"012", L"", 11}, {L"257", L"", 11}, {L"3", L"0", 2}}) {
            Type(dialog, kOutPictureEdit, typed);
            EXPECT_EQ(items, Text(dialog, kOutPictureItemsEdit));
            EXPECT_EQ(picked, Picked(dialog, kOutPictureCombo));
        }
        chooseLast(kOutPictureListButton);
        expect(kOutPictureRadio, {L"", L"", L"12", L"3"});
        Pick(dialog, kOutPictureCombo, 0);
        expect(kOutPictureRadio, {L"", L"", L"1", L"5"});
        EXPECT_EQ(kOutPictureEdit, FocusId());
        Click(dialog, kOutCurrentRadio);
        expect(kOutCurrentRadio, {L"2", L"7", L"", L""});
    });
    UseModel(u8R"({"layouts": [{"number": 1, "name": "窓なし"}]})");
    Look([](HWND dialog) { EXPECT_FALSE(IsEnabled(dialog, kOutLayoutRadio)); });
}

TEST_F(Export, CombosAreWideWhileTheirListsAreOpen) {
    Look([&](HWND dialog) {
        Click(dialog, kOutPictureRadio);
        for (const auto& [combo, edit, open, closed] :
             {std::tuple(kOutPictureCombo, kOutPictureEdit, L"出力ピクチャ番号を選択してください。",
                         L"出力ピクチャ番号を入力してください。"),
              {kOutRecentCombo, kOutFileNameEdit, L"", L"ファイル名を入力してください。"}}) {
            const RECT narrow = Area(dialog, combo);
            Focus(dialog, combo);
            EXPECT_EQ(narrow.left, Area(dialog, combo).left);
            Key(VK_F4);
            Until("the open list", [&] { return Send(Control(dialog, combo), CB_GETDROPPEDSTATE) != 0; });
            EXPECT_EQ(Area(dialog, edit).left, Area(dialog, combo).left);
            EXPECT_EQ(open, Guidance(dialog));
            Key(VK_ESCAPE);
            EXPECT_EQ(dialog, Settle());
            EXPECT_EQ(narrow.left, Area(dialog, combo).left);
            EXPECT_EQ(edit, FocusId());
            EXPECT_EQ(closed, Guidance(dialog));
        }
    });
}

TEST_F(Export, RefusesInOrder) {
    const struct {
        std::vector<std::pair<int, const wchar_t*>> steps;  // null: a click
        std::wstring message;
        int focus;
        const wchar_t* caption = kDwgCaption;
    } rows[] = {
        {{{kOutPictureRadio, nullptr}, {kOutPictureEdit, L"0"}}, kBadPicture, kOutPictureEdit, kDxfCaption},
        {{{kOutPictureEdit, L"257"}}, kBadPicture, kOutPictureEdit, kDxfCaption},
        {{{kOutPictureEdit, L"3"}}, kNothing, IDOK},
        {{{kOutLayoutRadio, nullptr}}, kNothing, IDOK},
        {{{kOutCurrentRadio, nullptr}, {kOutFileNameEdit, L"図\xD842\xDF9F"}}, L"「\xD842\xDF9F」", kOutFileNameEdit},
        {{{kOutFileNameEdit, L""}}, L"入力してください", kOutFileNameEdit},
        {{{kOutFileNameEdit, L"a|b"}}, L"|", kOutFileNameEdit}};
    output.outputIsDwg = 1;
    std::memset(output.layerTableFileName, 'x', sizeof output.layerTableFileName);  // without an end
    Write(L"DWG\\a.dwg", "a");
    const ExportRecord before = record;
    record.params.outputVersion = 0;
    Look([&](HWND dialog) {
        Type(dialog, kOutFileNameEdit, L"a|b");
        for (const int version : {0, -1, 8}) {
            record.params.outputVersion = version;
            ExpectRefusal(dialog, kNoGx3, IDOK, kDwgCaption);
        }
        record.params.outputVersion = 1;
        for (const auto& row : rows) {
            for (const auto& [id, text] : row.steps) Play(dialog, {{id, text}});
            ExpectRefusal(dialog, row.message, row.focus, row.caption);
        }
        Type(dialog, kOutFileNameEdit, L"*");  // a pattern: the chooser, and back
        Focus(dialog, kOutTableEdit);
        EXPECT_EQ(L"*", Text(dialog, kOutFileNameEdit));
        Click(dialog, IDOK);
        EXPECT_NE(dialog, Settle());
        Click(Settle(), IDCANCEL);
        EXPECT_EQ(kOutFileNameEdit, FocusId());
        Type(dialog, kOutFileNameEdit, L"a.dwg");
        Click(dialog, IDOK);  // is there
        Answer(ReadBox(), IDNO);
        EXPECT_EQ(dialog, Settle());
    });
    record.params.outputVersion = before.params.outputVersion;
    EXPECT_TRUE(before == record);
}

// DXF may be written for GX-3; by a batch nothing.
TEST_F(Export, RecordIsWrittenBeforeTheModelIsChecked) {
    UseModel(
        u8R"({"checkBeforeExport": true, "currentPicture": 1, "layouts": [{"number": 7, "windows": [9, 1]}],
                 "pictures": [{"number": 1, "itemCount": 2, "faults": [{"item": 1, "text": "短い"}]}]})");
    record.params.outputVersion = 0;
    const int result = Run([&](HWND dialog) {
        ExpectRefusal(dialog, kNoGx3, kOutBatchButton, kDxfCaption, kOutBatchButton);
        Play(dialog, {{kOutLayoutRadio, nullptr}, {kOutFileNameEdit, L"a.dxf"}, {IDOK, nullptr}});
        Expect(kDxfCaption, L"モデル内のアイテムにエラーがあります。\nDXF_Interface.lis を参照してください。",
               MB_ICONERROR, IDOK);
        EXPECT_EQ(dialog, Settle());
        EXPECT_EQ((home / L"DXF\\a.dxf").generic_string(), output.outputFileName);
        EXPECT_EQ(7, output.drawingNumber);
        EXPECT_EQ(0, output.pictureNumber);
        EXPECT_EQ(0, output.pictureMode);
        record.params.submodelExpand = 1;
        Click(dialog, IDOK);
    });
    EXPECT_EQ(0, result);
}

TEST_F(Export, AHostWithoutParametersGetsTheKeptOnes) {
    output.exportParams = nullptr;
    for (const int version : {3, 7}) {  // those of a new installation, then those kept
        Look([&](HWND dialog) {
            Click(dialog, kOutParametersButton);
            const HWND parameters = Settle();
            EXPECT_TRUE(IsChecked(parameters, version == 3 ? k2000Radio : k2013Radio));
            Play(parameters, {{k2013Radio, nullptr}, {kKeepParametersCheck, nullptr}, {IDOK, nullptr}});
            EXPECT_EQ(dialog, Settle());
        });
    }
    EXPECT_EQ(nullptr, output.exportParams);
}

TEST_F(Export, VersionLeadsCoordinatesAndCode) {
    const std::vector<int> radios = {kPaperCoordinatesRadio, kModelCoordinatesRadio, kSjisRadio, kEucRadio, kUtf8Radio};
    const struct {
        int dwg, version, code, shown, clicked;
        const wchar_t *before, *after;  // coordinates and code, at first and when the radio was clicked
    } rows[] = {{0, 0, 1, kGx3Radio, kR13Radio, L"x-ox-", L"xoxo-"},
                {0, 3, 2, k2000Radio, kGx3Radio, L"ox--x", L"x-xo-"},
                {0, 5, 0, k2007Radio, kR14Radio, L"ox--x", L"oxxo-"},
                {0, 0x7FFFFFFF, 9, kGx3Radio, k2013Radio, L"x-xo-", L"xo--x"},
                {1, 0, 1, kR13Radio, k2007Radio, L"oxx--", L"ox--x"},
                {1, -1, 0, kR13Radio, k2004Radio, L"oxx--", L"oxx--"},
                {1, 7, 0, k2013Radio, kR13Radio, L"ox--x", L"oxx--"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        output.outputIsDwg = row.dwg;
        record.params.outputVersion = row.version;
        record.params.kanjiCode = row.code;
        record.params.modelCoordinates = record.params.binaryFormat = 1;
        const ExportRecord before = record;
        Parameters([&](HWND dialog) {
            EXPECT_TRUE(IsChecked(dialog, row.shown));
            EXPECT_EQ(row.before, CheckedOf(dialog, radios));
            EXPECT_EQ(row.dwg ? L"x-" : L"ox", CheckedOf(dialog, {kAsciiRadio, kBinaryRadio}));
            EXPECT_NE(row.dwg == 1, IsEnabled(dialog, kGx3Radio));
            Click(dialog, row.clicked);
            EXPECT_EQ(row.after, CheckedOf(dialog, radios));
        });
        EXPECT_TRUE(before == record);
    }
}

TEST_F(Export, ParametersAreCheckedThenWritten) {
    const std::wstring missing = L"名前が入力されていません。", twice = L"名前が重複しています。";
    const struct {
        int edit;
        std::wstring text, message;
        int focus;
    } rows[] = {{kHatchNameEdit, L"A", twice, kHatchNameEdit},
                {kDivisionEdit, L"3", kBadDivision, kDivisionEdit},
                {kDivisionEdit, L"21", kBadDivision, kDivisionEdit},
                {kDivisionEdit, L"", kBadDivision, kDivisionEdit},
                {kDivisionEdit, L" 20", twice, kHatchNameEdit},
                {kHatchNameEdit, L"G", twice, kDimensionNameEdit},
                {kHatchNameEdit, L" ", missing, kHatchNameEdit},
                {kSubmodelNameEdit, L"", missing, kSubmodelNameEdit},
                {kSubmodelNameEdit, L"\x00E9", L"「\x00E9」", kSubmodelNameEdit},
                {kSubmodelNameEdit, std::wstring(32, L'表') + L"x", L"長すぎます", kSubmodelNameEdit}};
    DxfOutParamBlock expected = record.params;
    const INT_PTR result = Parameters([&](HWND dialog) {
        EXPECT_FALSE(IsShown(dialog, kPidOnRadio) || IsShown(dialog, kPidGroup));
        for (const auto& row : rows) {
            Type(dialog, row.edit, row.text);
            ExpectRefusal(dialog, row.message, row.focus, kParamCaption);
        }
        EXPECT_EQ(0, std::memcmp(&expected, &record.params, sizeof expected));
        Type(dialog, kSubmodelNameEdit, std::wstring(32, L'表'));
        Type(dialog, kHatchNameEdit, L"h");
        for (const int id : {kR14Radio, kBinaryRadio, kModelCoordinatesRadio, kEucRadio, kTwoPointsRadio,
                             kCurveElementsRadio, kHiddenSkippedRadio, kPerCharacterRadio, kSymbolExpandRadio,
                             kFcsExpandRadio, kHatchExpandRadio, kUseSymbolNameRadio, kKeepParametersCheck})
            Click(dialog, id);
        EXPECT_TRUE(IsChecked(dialog, kUseSymbolNameRadio));
        Click(dialog, kUseSymbolNameRadio);
        EXPECT_FALSE(IsChecked(dialog, kUseSymbolNameRadio));
        Click(dialog, kUseSymbolNameRadio);
        Click(dialog, IDOK);
    });
    EXPECT_EQ(IDOK, result);
    expected.outputVersion = 2;
    expected.binaryFormat = expected.kanjiCode = expected.modelCoordinates = expected.textTwoPoints = 1;
    expected.curveExpand = expected.hiddenSkip = expected.annotationPerChar = expected.useSymbolName = 1;
    expected.symbolExpand = expected.fcsExpand = expected.hatchExpand = 1;
    expected.curveDivision = 20;
    std::string name;
    for (int i = 0; i < 32; ++i) name += "\x95\x5C";  // 表
    WriteFixedText(expected.submodelBlock, name);
    WriteFixedText(expected.hatchBlock, "h");
    EXPECT_EQ(0, std::memcmp(&expected, &record.params, sizeof expected));
    DxfOutParamBlock kept{};
    EXPECT_EQ(0, DxfOutReadParam(&kept));
    EXPECT_EQ(0, std::memcmp(&expected, &kept, sizeof expected));
}

// Names that fill their fields, bytes that are no text, and words without a meaning.
TEST_F(Export, ParametersOfRubbishAreSurvived) {
    DxfOutParamBlock& params = record.params;
    std::memset(&params, 0x81, sizeof params);
    for (int i = 0; i < kNames; ++i) std::memset(NameOf(params, i), 'a' + i, kNameSize);
    std::memcpy(params.markBlock, "c\x81", 3);  // a first byte without a second
    const DxfOutParamBlock before = params;
    const auto user = [&](int button) {
        return [button](HWND dialog) {
            EXPECT_EQ(std::wstring(kNameSize, L'b'), Text(dialog, kSymbolNameEdit));
            Type(dialog, kDivisionEdit, L"4");
            Click(dialog, button);
        };
    };
    EXPECT_EQ(IDCANCEL, Parameters(user(IDCANCEL)));
    EXPECT_EQ(0, std::memcmp(&before, &params, sizeof params));
    EXPECT_EQ(IDOK, Parameters(user(IDOK)));
    EXPECT_EQ(0, std::memcmp(before.submodelBlock, NameOf(params, 0), kNames * kNameSize));
    EXPECT_EQ(0, params.outputVersion);
    EXPECT_EQ(1, params.dimensionExpand);
    EXPECT_EQ(4, params.curveDivision);
    EXPECT_EQ(before.layerConversion, params.layerConversion);
}
