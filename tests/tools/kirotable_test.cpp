// Runs kirotable, as a user does, in a folder of its own.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <sys/stat.h>
#else
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;
using namespace std::string_literals;
using Json = nlohmann::json;

namespace {

fs::path tool;

constexpr std::pair<const char*, const char*> kKinds[] = {
    {"dxfin-layer", "DXFKIRO_LAYER"},  {"dxfin-line", "DXFKIRO_LINE"},    {"dxfin-style", "DXFKIRO_STYLE"},
    {"dxfin-arrow", "DXFKIRO_ARROW"},  {"dxfout-layer", "KIRODXF_LAYER"}, {"dxfout-line", "KIRODXF_LINE"},
    {"dxfout-style", "KIRODXF_STYLE"}, {"dxfout-arrow", "KIRODXF_ARROW"}};

fs::path Path(const std::string& name) { return std::u8string(name.begin(), name.end()); }

std::string Bytes(const std::string& name) {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Write(const std::string& name, const std::string& bytes) { std::ofstream(Path(name), std::ios::binary) << bytes; }

struct Outcome {
    int status;
    std::string out, error;
};

#ifdef _WIN32
// Without a shell, which takes longer to start than the program itself.
int RunTool(const std::string& arguments) {
    int saved[2];
    for (const int stream : {0, 1}) {
        saved[stream] = _dup(stream + 1);
        const int file = _open(stream ? "run.err" : "run.out", _O_CREAT | _O_TRUNC | _O_WRONLY, _S_IWRITE);
        _dup2(file, stream + 1);
        _close(file);
    }
    const auto status = _wspawnl(_P_WAIT, tool.c_str(), L"kirotable", Path(arguments).c_str(), nullptr);
    for (const int stream : {0, 1}) {
        _dup2(saved[stream], stream + 1);
        _close(saved[stream]);
    }
    return static_cast<int>(status);
}
#else
int System(const std::string& command) {
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
int RunTool(const std::string& arguments) {
    return System("\"" + tool.string() + "\" " + arguments + " >run.out 2>run.err");
}
#endif

Outcome Tool(const std::string& arguments) {
    const int status = RunTool(arguments);
    return {status, Bytes("run.out"), Bytes("run.err")};
}

bool Has(const std::string& text, const std::string& part) { return text.find(part) != text.npos; }

// Without the two lines that name the file and the time, and without blanks at the ends of lines: the default comments
// of line patterns have them, and they are not read back.
std::string Body(const std::string& table) {
    std::string body = table.substr(table.find("/\r\n"));
    for (std::size_t at; (at = body.find(" \r\n")) != body.npos;) body.erase(at, 1);
    return body;
}

class KiroTable : public testing::Test {
  protected:
    KiroTable() : before_(fs::current_path()), folder_(fs::temp_directory_path() / ("kirotable_test_" + Process())) {
        fs::create_directory(folder_);
        fs::current_path(folder_);
    }
    ~KiroTable() override {
        fs::current_path(before_);
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

  private:
    static std::string Process() { return std::to_string(getpid()); }
    fs::path before_, folder_;
};

TEST_F(KiroTable, NewTablesAreCleanAndStayAsTheyAre) {
    std::string files;
    for (const auto& [kind, file] : kKinds) {
        files += file + " "s;
        EXPECT_EQ(Tool("new "s + kind + " -o " + file).status, 0) << kind;
        const std::string made = Bytes(file);
        EXPECT_TRUE(made.ends_with("/\r\n/ Eof\r\n")) << made;
        EXPECT_TRUE(Has(made.substr(0, made.find('\n')), fs::absolute(file).string())) << made;
    }
    const Outcome check = Tool("check " + files);
    EXPECT_EQ(check.status, 0);
    EXPECT_EQ(check.out, "8 ファイル: エラー 0 件、警告 0 件、読めないファイル 0 件\n");
    const Json json = Json::parse(Tool("check --json " + files).out);
    for (std::size_t i = 0; i < std::size(kKinds); ++i) EXPECT_EQ(json["files"][i]["kind"], kKinds[i].first);

    const std::string made = Body(Bytes("KIRODXF_LINE"));
    EXPECT_EQ(Body(Tool("new dxfout-line").out), made);
    EXPECT_EQ(Tool("format KIRODXF_LINE").error, "");
    EXPECT_EQ(Body(Bytes("KIRODXF_LINE")), made);
    Write("there", "");
    EXPECT_EQ(Tool("new dxfin-line -o there").status, 1);
    EXPECT_EQ(Bytes("there"), "");
    EXPECT_EQ(Tool("new dxfin-line -o there --force").status, 0);
    EXPECT_NE(Bytes("there"), "");
}

TEST_F(KiroTable, CheckSaysFileLineAndMessage) {
    const std::string table =
        "/ comment\r\n"
        "LAYER \x95\x5C = 5\n"
        "LAYER A B = 6\n"
        "LAYER C D = 999\r\n"
        "\n"
        "LAYER \0\n"
        "LAYER C = 0\n"s +
        "/" + std::string(255, 'x') +
        "\n"  // one byte too long for its LF
        "COLOR 5 = 1,2,3\n"
        "LAYER \x95\x5C = 7\n"
        "\x1B[31mbad";
    Write("DXFKIRO_LAYER.1", table);
    Write("KIRODXF_line", "FOO 1\nWIDTH-TYPE 1\n");
    const Outcome check = Tool("check DXFKIRO_LAYER.1 nothing KIRODXF_line .");
    EXPECT_EQ(check.status, 2);
    EXPECT_EQ(check.error, "kirotable: nothing: ファイルがありません\nkirotable: .: フォルダです\n");
    const std::string lines =
        "DXFKIRO_LAYER.1:3: 警告: 値の途中の空白は取り除かれます\n"
        "DXFKIRO_LAYER.1:4: ***** 無効なクラス番号です (1-256) *****\n"
        "DXFKIRO_LAYER.1:5: ***** 無効なデータです *****\n"
        "DXFKIRO_LAYER.1:6: ***** 書式が違います *****       LAYER  layer_name = class#\n"
        "DXFKIRO_LAYER.1:7: ***** 無効なクラス番号です (1-256) *****\n"
        "DXFKIRO_LAYER.1:8: ***** 無効なデータです *****\n"
        "DXFKIRO_LAYER.1:8: 警告: 長すぎる行です。続きは次の行として読まれます\n"
        "DXFKIRO_LAYER.1:11: ***** 無効なデータです *****\n"
        "DXFKIRO_LAYER.1: 警告: layerClass に同じ名前が 2 つ以上あります: 表\n"
        "DXFKIRO_LAYER.1: 警告: 書き戻すと変わります: ~ color 5: colorRgb 1,2,3 -> 0,0,255\n";
    const std::string unknown =
        "KIRODXF_line:1: 警告: 知らないキーワードです (Invalid Key_Word)。この行は読まれません\n";
    EXPECT_EQ(check.out, lines + unknown + "4 ファイル: エラー 6 件、警告 5 件、読めないファイル 2 件\n");
    EXPECT_EQ(Tool("check DXFKIRO_LAYER.1").status, 1);
    EXPECT_EQ(Tool("check KIRODXF_line").status, 0);

    const Json json = Json::parse(Tool("check --json nothing DXFKIRO_LAYER.1").out);
    EXPECT_EQ(json["errors"], 6);
    EXPECT_EQ(json["unreadable"], 1);
    EXPECT_EQ(json["files"][0]["file"], "nothing");
    const Json& file = json["files"][1];
    EXPECT_EQ(file["errors"][0], (Json{{"line", 4}, {"message", "***** 無効なクラス番号です (1-256) *****"}}));
    EXPECT_EQ(file["errors"].size(), 6u);
    EXPECT_TRUE(file["warnings"].back()["line"].is_null());
}

TEST_F(KiroTable, ArgumentsAreExplained) {
    const Outcome nothing = Tool("");
    EXPECT_EQ(nothing.status, 2);
    EXPECT_TRUE(Has(nothing.error, "引数が足りません")) << nothing.error;
    const Outcome help = Tool("--help");
    EXPECT_EQ(help.status, 0);
    for (const std::string command : {"check", "show", "format", "new", "diff"})
        EXPECT_TRUE(Has(help.out, "\n  " + command + " ")) << help.out;
    const Outcome more = Tool("check --help");
    EXPECT_EQ(more.status, 0);
    EXPECT_TRUE(Has(more.out, "使い方: kirotable check") && Has(more.out, "\n例:\n  kirotable check")) << more.out;
    for (const auto& [kind, file] : kKinds) EXPECT_TRUE(Has(help.out, kind + " "s) && Has(help.out, file));
    EXPECT_EQ(Tool("show --what").status, 2);
    Write("table", "");
    const Outcome nameless = Tool("check table");
    EXPECT_EQ(nameless.status, 2);
    EXPECT_TRUE(Has(nameless.error, "--kind")) << nameless.error;
    EXPECT_EQ(Tool("check --kind dxfin table").status, 2);
    EXPECT_EQ(Tool("new dxfin").status, 2);
    EXPECT_EQ(Tool("check --kind dxfin-line table").status, 0);
    EXPECT_EQ(Tool("show --kind dxfin-line nothing").status, 2);
}

TEST_F(KiroTable, ShowHasTheFieldsAndTextsInUtf8) {
    Write("DXFKIRO_ARROW", "ARROW \x95\x5C\xB1\x81\x1B = 12, 180, 5\nARROW X\x83 = 9, 0, 5\nARROW bad\n");
    const Outcome arrows = Tool("show DXFKIRO_ARROW");
    EXPECT_EQ(arrows.status, 0);
    EXPECT_TRUE(Has(arrows.out,
                    "\n  LINE       1          0           300\n"
                    "  SOLID      3          0           300\n"))
        << arrows.out;
    EXPECT_TRUE(Has(arrows.out,
                    "\n  表ｱ\uFFFD\uFFFD      12         180         5\n"
                    "  X\uFFFD         9          0           5\n"))
        << arrows.out;
    EXPECT_TRUE(Has(arrows.error, "読めない行が 1 行")) << arrows.error;
    const Json json = Json::parse(Tool("show --json DXFKIRO_ARROW").out);
    EXPECT_EQ(json["arrowCount"], 6);
    EXPECT_EQ(json["arrows"][4],
              (Json{{"arrowName", "表ｱ\uFFFD\x1B"}, {"arrowMark", 12}, {"arrowAngle", 180}, {"arrowSize", 5}}));

    Write("KIRODXF_LAYER", "CLASS 3 = A\nCLASS 4 = A\nCLASS 6 = A\nCOLOR 0 = 7\nPICTURE_OFF 1\n");
    EXPECT_TRUE(Has(Tool("show KIRODXF_LAYER").out,
                    "\n[classLayer]\n  class  classLayer\n  1-2    0\n  3-4    A\n"
                    "  5      0\n  6      A\n  7-257  0\n\n"));
    const Json layers = Json::parse(Tool("show --json KIRODXF_LAYER").out);
    EXPECT_EQ(layers["pictureOff"], 257);
    EXPECT_EQ(layers["classLayer"].size(), 257u);
    EXPECT_EQ(layers["classLayer"][2], (Json{{"class", 3}, {"classLayer", "A"}}));
    EXPECT_EQ(layers["colorMap"][256], (Json{{"color", 256}, {"colorMap", 7}}));

    Write("KIRODXF_LINE", "PITCH-P=1.5,-2\nCOMMENT-P= a  b\n");
    const Json pattern = Json::parse(Tool("show --json KIRODXF_LINE").out)["patterns"][0];
    EXPECT_EQ(pattern, (Json{{"patternName", "P"}, {"patternComment", "a  b"}, {"pitch", {1.5, 2.0}}}));
    Write("KIRODXF_STYLE", "");
    const auto font = [](const std::string& option) {
        return Json::parse(Tool("show --json " + option + " KIRODXF_STYLE").out)["styles"][0]["fontFile"];
    };
    EXPECT_EQ(font(""), "monotxt");
    EXPECT_EQ(font("--gx3"), "txt");
    // The host knows the names of arrow heads.
    Write("KIRODXF_ARROW", "ARROW 1, 0 = _DOT\nARROW 2, 0 = NOBODY\nARROW 3, 0 = _DOT\nARROW 4, 0 = _DOT\n");
    EXPECT_TRUE(Has(Tool("check KIRODXF_ARROW").out, ":2: ***** 無効な矢印名です *****\n"));
    EXPECT_TRUE(Has(Tool("show KIRODXF_ARROW").out, "\n  1     0      _DOT\n  3-4   0      _DOT\n"));
}

TEST_F(KiroTable, FormatLosesNothingUnasked) {
    const std::string damaged = "/ mine\nSTYLE = A, 2,,,,,,,,\nSTYLES\nFONT = 3, 1.5\n";
    Write("DXFKIRO_STYLE", damaged);
    const Outcome refused = Tool("format DXFKIRO_STYLE");
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(Has(refused.error, "DXFKIRO_STYLE:3: ***** ") && Has(refused.error, "~ font: 3 -> 0\n"))
        << refused.error;
    EXPECT_EQ(Bytes("DXFKIRO_STYLE"), damaged);
    EXPECT_EQ(Tool("format DXFKIRO_STYLE -o other").status, 1);
    EXPECT_FALSE(fs::exists("other"));

    EXPECT_EQ(Tool("format --force DXFKIRO_STYLE -o -").out.substr(0, 29), "/ File name : DXFKIRO_STYLE\r\n");
    EXPECT_EQ(Bytes("DXFKIRO_STYLE"), damaged);
    EXPECT_EQ(Tool("format --force DXFKIRO_STYLE").status, 0);
    const std::string formatted = Bytes("DXFKIRO_STYLE");
    EXPECT_TRUE(Has(formatted, "STYLE = A, 2, 0, 1, 0.2, 1.4, 1, 1, 0.95, 0.75\r\n")) << formatted;
    EXPECT_FALSE(Has(formatted, "mine"));
    EXPECT_EQ(Tool("format DXFKIRO_STYLE").status, 0);
    EXPECT_EQ(Body(Bytes("DXFKIRO_STYLE")), Body(formatted));
    EXPECT_EQ(Tool("format . --kind dxfin-style").status, 2);
    // Pitches without a comment are written with an empty one, which is an error to the reader.
    Write("KIRODXF_LINE", "PITCH-P=1,2\n");
    EXPECT_EQ(Tool("format KIRODXF_LINE").status, 1);
    // Here the writer only adds something.
    Write("KIRODXF_LINE", "PITCH-P=1,2\nCOMMENT-P=p\n");
    EXPECT_EQ(Tool("format KIRODXF_LINE").error, "");
    Write("DXFKIRO_ARROW", "nothing lost but this\n");
    EXPECT_EQ(Tool("format DXFKIRO_ARROW").status, 1);
}

TEST_F(KiroTable, DiffMatchesRowsByName) {
    Write("DXFKIRO_LINE.a", "LINE-TYPE A = 1,1\nLINE-TYPE B = 2,2\nLINE-TYPE A = 3,3\nCOLOR 7 = 5\nWIDTH 0,2 = 1\n");
    Write("DXFKIRO_LINE.b",
          "LINE-TYPE N = 9,9\nLINE-TYPE A = 1,4\nLINE-TYPE A = 3,3\nLINE-TYPE A = 6,6\nCOLOR 7 = 5\n"
          "WIDTH 0,3 = 1\nPOLWIDTH-SWITCH 0\n");
    const Outcome diff = Tool("diff DXFKIRO_LINE.a DXFKIRO_LINE.b");
    EXPECT_EQ(diff.status, 1);
    EXPECT_EQ(diff.out,
              "~ polWidthSwitch: 1 -> 0\n"
              "~ lineTypes A: lineWeight 1 -> 4\n"
              "- lineTypes B: lineFont = 2, lineWeight = 2\n"
              "+ lineTypes N: lineFont = 9, lineWeight = 9\n"
              "+ lineTypes A: lineFont = 6, lineWeight = 6\n"
              "- polyWidths 0-2: polyWidthWeight = 1\n"
              "+ polyWidths 0-3: polyWidthWeight = 1\n");
    Write("DXFKIRO_LINE.c", "COLOR 7 = 5\nWIDTH 0,2 = 1\nLINE-TYPE B = 2,2\nLINE-TYPE A = 1,1\nLINE-TYPE A = 3,3\n");
    EXPECT_EQ(Tool("diff DXFKIRO_LINE.a DXFKIRO_LINE.c").status, 0);
    Write("KIRODXF_LINE", "");
    EXPECT_EQ(Tool("diff DXFKIRO_LINE.a KIRODXF_LINE").status, 2);
    EXPECT_EQ(Tool("diff DXFKIRO_LINE.a nothing").status, 2);
}

TEST_F(KiroTable, FileNamesInAnyScript) {
    const std::string name = "表 \u00E9 \uD55C";  // code page 932 has the first of them only
    EXPECT_EQ(Tool("new dxfin-arrow -o \"" + name + "\"").status, 0);
    const std::string head = Bytes(name);
    EXPECT_TRUE(Has(head.substr(0, head.find('\r')) + "|", "\x95\x5C \x81\xAC \x81\xAC|")) << head;
    const Json json = Json::parse(Tool("check --json --kind dxfin-arrow \"" + name + "\"").out);
    EXPECT_EQ(json["files"][0]["file"], name);
    EXPECT_EQ(json["unreadable"], 0);
}

#ifndef _WIN32
TEST_F(KiroTable, FullDiskLeavesTheOldFile) {
    const std::string old = "LAYER A = 5\n";
    Write("DXFKIRO_LAYER", old);
    EXPECT_EQ(System("ulimit -f 1; " + tool.string() + " format DXFKIRO_LAYER 2>run.err"), 2);
    EXPECT_TRUE(Has(Bytes("run.err"), "書けません")) << Bytes("run.err");
    EXPECT_EQ(Bytes("DXFKIRO_LAYER"), old);
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 2);  // with the messages
    EXPECT_EQ(System(tool.string() + " show DXFKIRO_LAYER >/dev/full 2>/dev/null"), 2);
}
#endif

}  // namespace

int main(int count, char** words) {
    testing::InitGoogleTest(&count, words);
#ifdef _WIN32
    const char* const name = "kirotable.exe";
#else
    const char* const name = "kirotable";
#endif
    tool = fs::absolute(words[0]).parent_path() / name;
    return RUN_ALL_TESTS();
}
