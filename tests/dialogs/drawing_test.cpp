// The stand-alone host's conversions: a drawing into the model, the model into its file and back, and out again.
#include <array>

#include "entry/host/FixedText.h"
#include "entry/host/KrUtility.h"
#include "entry/host/kirodxf.h"
#include "tests/DrawingText.h"
#include "tests/dialogs/TestHost.h"

namespace fs = std::filesystem;

namespace {

std::string Drawing(const std::string& items) {
    return ::Drawing("0 LAYER/2 WALL/62 3", items, "0 BLOCK/2 DOOR/0 CIRCLE/8 WALL/10 0/20 0/40 1/0 ENDBLK");
}
const std::string kLine = "0 LINE/8 WALL/10 1/20 2/11 3/21 4/";
const std::string kInsert = "0 INSERT/8 0/2 DOOR/10 5/20 5/";

class DrawingTest : public TestHost {
  protected:
    DrawingTest() {
        in.convertHidden = in.convertLayerNames = in.defaultLineWeight = 1;
        out.outputVersion = 3;
        setdxfintblnam("");
        setdxfottblnam("");
        SxfModelInit(3, kSxfModelBack);
    }
    // The internal path of a file of the home folder.
    std::string Path(const wchar_t* name) const { return (home / name).generic_string(); }
    int Import(const std::string& bytes, int picture = 1, int add = 0) {
        setdxfinparam(&in);
        Write(L"DXF\\in.dxf", bytes);
        std::memset(&info, 0, sizeof info);
        info.input.pictureNumber = picture;
        info.input.addMode = add;
        info.input.scale = 1.0;
        return dxfin(Path(L"DXF/in.dxf").c_str(), &info);
    }
    int Export(const wchar_t* name, int drawing, int picture) {
        setdxfotparam(&out);
        return DxfOutFloppy(false, Path(name).c_str(), drawing, picture);
    }
    std::string Bytes(const wchar_t* name) const { return BytesOf(home / name); }
    // The layers of the items of a kind in a text drawing.
    std::string Layers(const wchar_t* name, const std::string& type) const {
        const std::string text = Bytes(name);
        std::string layers;
        for (std::size_t at = text.find("ENTITIES"); (at = text.find("  0\r\n" + type + "\r\n", at)) != text.npos;
             ++at) {
            const std::size_t start = text.find("\r\n  8\r\n", at) + 7;
            layers += text.substr(start, text.find("\r\n", start) - start) + " ";
        }
        return layers;
    }
    static int Items(int picture) { return HxPermItemDbGetItemCount(HxModelGetPermItemDb(GetActiveModel()), picture); }
    static const char* Class(int number) {
        const char* name = HxNameListGetName(GetActiveModel()->GetClassNameList(), number);
        return name ? name : "";
    }

    TARNAINFO info;
    DxfInParamBlock in{};
    DxfOutParamBlock out{};
};

}  // namespace

TEST_F(DrawingTest, GoesThroughTheModelAndItsFileByTheTables) {
    Write(L"DXF\\TABLE\\IN", "LAYER WALL = 7\n");
    Write(L"DXF\\TABLE\\OUT", "LAYER_CONTROL CLASS\nCLASS 7 = Kabe\n");
    in.layerConversion = 2;
    setdxfintblnam(Path(L"DXF/TABLE/IN").c_str());
    ASSERT_EQ(0, Import(Drawing(kLine + kInsert), 5));
    EXPECT_TRUE(GetActiveModel()->IsModified());
    EXPECT_EQ(2, Items(5));
    EXPECT_STREQ("WALL", Class(7));
    const std::string model = Path(L"MODEL.mdl");
    ASSERT_EQ(0, Mdlwrite(model.c_str()));
    EXPECT_FALSE(GetActiveModel()->IsModified());
    SxfModelInit(3, kSxfNewModel);
    EXPECT_EQ(0, Items(5));
    EXPECT_EQ(kDxfNoPicture, Export(L"DXF/OUT.dxf", 0, 5));
    ASSERT_EQ(0, Mdlread1(model.c_str()));
    EXPECT_EQ(2, Items(5));
    ASSERT_EQ(0, Export(L"DXF/OUT.dxf", 0, 5));
    EXPECT_EQ("WALL ", Layers(L"DXF/OUT.dxf", "LINE"));
    HxNameListSetName(GetActiveModel()->GetClassNameList(), 7, "MUR");
    ASSERT_EQ(0, Export(L"DXF/OUT.dxf", 0, 5));
    EXPECT_EQ("MUR ", Layers(L"DXF/OUT.dxf", "LINE"));
    HxLineStylePattern* const pattern = HxLineStyleGetPattern(HxModelGetLineStyle(GetActiveModel()), 5);
    HxLineStylePatternSetName(pattern, "HASEN");
    HxLineStylePatternSet(pattern, 2, std::array{3.0, 1.5}.data());
    ASSERT_EQ(0, Export(L"DXF/OUT.dxf", 0, 5));
    EXPECT_NE(std::string::npos, Bytes(L"DXF/OUT.dxf").find("\r\nHASEN\r\n 70\r\n"));
    EXPECT_NE(std::string::npos, Bytes(L"DXF/OUT.dxf").find("\r\n 49\r\n3\r\n 74\r\n0\r\n 49\r\n-1.5\r\n"));
    out.layerConversion = 1;
    setdxfottblnam("OUT");  // in the folder of tables
    ASSERT_EQ(0, Export(L"DXF/OUT.dxf", 0, 5));
    EXPECT_EQ("Kabe ", Layers(L"DXF/OUT.dxf", "LINE"));
    EXPECT_NE(std::string::npos, Bytes(L"DXF/OUT.dxf").find("DOOR"));
    // A model file does for a model of the host program too.
    KiroHostLoadModel(nullptr, nullptr, 0);
    EXPECT_EQ(0, KiroHostLoadModel((home / L"MODEL.mdl").c_str(), nullptr, 0));
    EXPECT_EQ(2, Items(5));
    std::string damaged = Bytes(L"MODEL.mdl");
    for (const std::size_t place : {std::size_t{20}, damaged.size() / 2, damaged.size() - 30}) {
        damaged[place] ^= 1;
        Write(L"BAD.mdl", damaged);
        EXPECT_EQ(kDxfBroken, Mdlread1(Path(L"BAD.mdl").c_str())) << place;
        damaged[place] ^= 1;
    }
    EXPECT_EQ(2, Items(5));
}

TEST_F(DrawingTest, APaperSpaceBecomesALayout) {
    const std::string paper = "0 VIEWPORT/67 1/69 2/0 TEXT/67 1/8 FRAME/1 x/";
    in.paperSpaceTarget = 1;
    ASSERT_EQ(0, Import(Drawing(kLine + paper), 3));
    const HxDlo* layout = HxDloListGetDlo(GetActiveModel()->GetDloList(), 1);
    HxDloFrame frame{};
    ASSERT_TRUE(HxDloGetDloFrame(layout, &frame));
    EXPECT_TRUE(frame.valid && frame.width > 0);
    EXPECT_EQ(3, HxDloGetDloWindowPicture(layout, 0));
    ASSERT_EQ(0, Export(L"DXF/PAGE.dxf", 1, 0));
    EXPECT_EQ("FRAME ", Layers(L"DXF/PAGE.dxf", "TEXT"));
    EXPECT_EQ("WALL ", Layers(L"DXF/PAGE.dxf", "LINE"));
}

TEST_F(DrawingTest, AddsToTheModelOrLeavesItAsItWas) {
    ASSERT_EQ(0, Import(Drawing(kLine + kInsert), 1));
    std::string other = Drawing(kLine + "0 LINE/8 NEW/");
    ASSERT_EQ(0, Import(other, 2, 1));
    EXPECT_EQ(std::make_pair(2, 2), std::make_pair(Items(1), Items(2)));
    EXPECT_STREQ("WALL", Class(2));
    EXPECT_STREQ("NEW", Class(3));
    EXPECT_NE(0, Import(other.substr(0, other.size() - 20), 2, 1));
    EXPECT_EQ(std::make_pair(2, 2), std::make_pair(Items(1), Items(2)));
    for (const int picture : {1, 2}) ASSERT_EQ(0, Export(L"DXF/OUT.dxf", 0, picture));
    EXPECT_EQ("WALL NEW ", Layers(L"DXF/OUT.dxf", "LINE"));
    const std::string text = Bytes(L"DXF/OUT.dxf");
    std::size_t doors = 0;
    for (std::size_t at = 0; (at = text.find("AcDbBlockBegin\r\n  2\r\nDOOR", at)) != text.npos; ++at) ++doors;
    EXPECT_EQ(1u, doors);
    // A model that is kept aside comes back, with its changes.
    SxfModelInit(3, kSxfModelAside);
    EXPECT_FALSE(GetActiveModel()->IsModified());
    ASSERT_EQ(0, Import(Drawing(kLine), 9));
    SxfModelInit(3, kSxfModelBack);
    EXPECT_TRUE(GetActiveModel()->IsModified());
    EXPECT_EQ(std::make_pair(2, 0), std::make_pair(Items(1), Items(9)));
}

TEST_F(DrawingTest, EveryFailureHasItsCodeAndItsText) {
    const auto import = [this](const char* path) { return dxfin(path, nullptr); };
    setdxfinparam(&in);
    EXPECT_EQ(kDxfNoFile, import(Path(L"DXF/none.dxf").c_str()));
    EXPECT_EQ(kDxfBadName, import("in.dxf"));
    EXPECT_EQ(kDxfBadName, import(nullptr));
    EXPECT_EQ(kDxfCutOff, Import(Drawing(kLine).substr(0, 90)));
    in.maxItemCount = 1;
    EXPECT_EQ(kDxfTooManyItems, Import(Drawing(kLine + kLine)));
    in.maxItemCount = 0;
    in.layerConversion = 2;
    setdxfintblnam(Path(L"DXF/TABLE/NONE").c_str());
    EXPECT_EQ(kDxfNoTable, Import(Drawing(kLine)));
    in.layerConversion = 0;
    EXPECT_FALSE(GetActiveModel()->IsModified());

    ASSERT_EQ(0, Import(Drawing(kLine), 2));
    Write(L"DXF\\kept.dxf", "old");
    fs::create_directories(home / L"DXF\\folder.dxf");
    SetFileAttributesW((home / L"DXF\\kept.dxf").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(kDxfWriteProtected, Export(L"DXF/kept.dxf", 0, 2));
    SetFileAttributesW((home / L"DXF\\kept.dxf").c_str(), FILE_ATTRIBUTE_NORMAL);
    {
        const std::ifstream other(home / L"DXF\\kept.dxf");
        EXPECT_EQ(kDxfFileInUse, Export(L"DXF/kept.dxf", 0, 2));
    }
    EXPECT_EQ("old", Bytes(L"DXF/kept.dxf"));
    EXPECT_EQ(kDxfCannotCreate, Export(L"DXF/folder.dxf", 0, 2));
    EXPECT_EQ(kDxfNoFolder, Export(L"GONE/x.dxf", 0, 2));
    EXPECT_EQ(kDxfNoPicture, Export(L"DXF/x.dxf", 0, 3));
    EXPECT_EQ(kDxfNoLayout, Export(L"DXF/x.dxf", 1, 0));
    EXPECT_EQ(kDxfNoDwgWriter, Export(L"DXF/x.DWG", 0, 2));
    EXPECT_EQ(kDxfNoDwgWriter, Export(L"DWG/x", 0, 2));
    EXPECT_EQ(kDxfBadName, Export(L"DXF/x*.dxf", 0, 2));
    EXPECT_EQ(kDxfNoFolder, Mdlwrite(Path(L"GONE/x.mdl").c_str()));
    out.outputVersion = 0;
    EXPECT_EQ(kDxfNotThatVersion, Export(L"DXF/x.dxf", 0, 2));
    EXPECT_FALSE(fs::exists(home / L"DXF\\x.dxf"));
    const KrUtilityPtr utility(KrCreateUtility());
    for (const int code : {kDxfNoFolder, kDxfDwgDrawing, kDxfNoDwgWriter, kDxfNothing}) {
        char text[kKrTextSize];
        EXPECT_TRUE(utility->GetMessageText(-code, text, sizeof text)) << code;
        EXPECT_EQ(DxfGetErrorMessage(code), HxEucEncoder::Sjis2Euc(text));
    }
    char name[8];
    EXPECT_EQ(9, mdlfname("\xC9\xBDXYZ", name, sizeof name));
    EXPECT_STREQ("\xC9\xBDXYZ.m", name);
    for (const char* none : {"", "a/b", "a*"}) EXPECT_EQ(0, mdlfname(none, nullptr, 0)) << none;
}
