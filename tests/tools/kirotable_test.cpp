// Runs kirotable, as a user does, in a folder of its own.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
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

#include "tests/DrawingText.h"

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

// What is said on the error stream has the part in it.
void ExpectFailure(const std::string& arguments, int status, const std::string& part) {
    const Outcome outcome = Tool(arguments);
    EXPECT_EQ(outcome.status, status) << arguments;
    EXPECT_TRUE(Has(outcome.error, part)) << arguments << ": " << outcome.error;
}
void ExpectOutput(const std::string& arguments, const std::string& part) {
    const std::string out = Tool(arguments).out;
    EXPECT_TRUE(Has(out, part)) << arguments << ": " << out;
}
Json JsonOf(const std::string& arguments) { return Json::parse(Tool(arguments).out); }

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
    const Json json = JsonOf("check --json " + files);
    for (std::size_t i = 0; i < std::size(kKinds); ++i) EXPECT_EQ(json["files"][i]["kind"], kKinds[i].first);

    const std::string made = Body(Bytes("KIRODXF_LINE"));
    EXPECT_EQ(Body(Tool("new dxfout-line").out), made);
    EXPECT_EQ(Tool("format --force KIRODXF_LINE").error, "");
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
        "DXFKIRO_LAYER.1:10: 警告: 同じ名前の行です。2 行目にもあります: 表\n"
        "DXFKIRO_LAYER.1:11: ***** 無効なデータです *****\n"
        "DXFKIRO_LAYER.1: 警告: 書き戻すと変わります: ~ color 5: colorRgb 1,2,3 -> 0,0,255\n";
    const std::string unknown = "KIRODXF_line:1: 警告: 知らないキーワードです。この行は読まれません\n";
    EXPECT_EQ(check.out, lines + unknown + "4 ファイル: エラー 6 件、警告 5 件、読めないファイル 2 件\n");
    EXPECT_EQ(Tool("check DXFKIRO_LAYER.1").status, 1);
    EXPECT_EQ(Tool("check KIRODXF_line").status, 0);

    const Json json = JsonOf("check --json nothing DXFKIRO_LAYER.1");
    EXPECT_EQ(json["errors"], 6);
    EXPECT_EQ(json["unreadable"], 1);
    EXPECT_EQ(json["files"][0]["file"], "nothing");
    const Json& file = json["files"][1];
    EXPECT_EQ(file["errors"][0], (Json{{"line", 4}, {"message", "***** 無効なクラス番号です (1-256) *****"}}));
    EXPECT_EQ(file["errors"].size(), 6u);
    EXPECT_TRUE(file["warnings"].back()["line"].is_null());
}

TEST_F(KiroTable, ArgumentsAreExplained) {
    Write("table", "");
    const std::pair<const char*, const char*> wrong[] = {
        {"", "コマンドがありません"},
        {"chek x", "chek というコマンドはありません。check ではありませんか"},
        {"check", "引数が足りません: FILE..."},
        {"show a b", "余分な引数です: b"},
        {"show --jsn a", "--jsn というオプションはありません。--json ではありませんか"},
        {"show a --kind", "--kind には値 KIND が要ります"},
        {"show a --json=1", "--json に値は付けられません"},
        {"show --kind dxfin-layr a", "--kind: dxfin-layr という種類はありません。dxfin-layer ではありませんか"},
        {"show --from utf-9 a", "utf-9 という文字コードはありません"},
        {"show -- --json", "--json: ファイルがありません"},
        {"show --what", "--what"},
        {"check table", "--kind"},
        {"check --kind dxfin table", "dxfin という種類はありません"},
        {"new dxfin", "dxfin という種類はありません"},
        {"show --kind dxfin-line nothing", "nothing: ファイルがありません"},
    };
    for (const auto& [words, message] : wrong) ExpectFailure(words, 2, message);
    EXPECT_EQ(Tool("check --kind dxfin-line table").status, 0);
    const Outcome help = Tool("--help");
    EXPECT_EQ(help.status, 0);
    for (const std::string command : {"check", "show", "format", "new", "diff", "coverage", "collect"})
        EXPECT_TRUE(Has(help.out, "\n  " + command + " ")) << help.out;
    for (const char* part : {"使い方: kirotable check", "\n例:\n  kirotable check"}) ExpectOutput("check --help", part);
    for (const auto& [kind, file] : kKinds) EXPECT_TRUE(Has(help.out, kind + " "s) && Has(help.out, file));
}

TEST_F(KiroTable, ShowHasTheFieldsAndTextsInUtf8) {
    Write("DXFKIRO_ARROW", "ARROW \x95\x5C\xB1\x81\x1B = 12, 180, 5\nARROW X\x83 = 9, 0, 5\nARROW bad\n");
    ExpectOutput("show DXFKIRO_ARROW",
                 "\n  LINE       1          0           300\n"
                 "  SOLID      3          0           300\n");
    ExpectOutput("show DXFKIRO_ARROW",
                 "\n  表ｱ\uFFFD\uFFFD      12         180         5\n"
                 "  X\uFFFD         9          0           5\n");
    ExpectFailure("show DXFKIRO_ARROW", 0, "誤りのある行が 1 行");
    const Json json = JsonOf("show --json DXFKIRO_ARROW");
    EXPECT_EQ(json["arrowCount"], 6);
    EXPECT_EQ(json["arrows"][4],
              (Json{{"arrowName", "表ｱ\uFFFD\x1B"}, {"arrowMark", 12}, {"arrowAngle", 180}, {"arrowSize", 5}}));

    Write("KIRODXF_LAYER", "CLASS 3 = A\nCLASS 4 = A\nCLASS 6 = A\nCOLOR 0 = 7\nPICTURE_OFF 1\n");
    ExpectOutput("show KIRODXF_LAYER",
                 "\n[classLayer]\n  class  classLayer\n  1-2    0\n  3-4    A\n"
                 "  5      0\n  6      A\n  7-257  0\n\n");
    const Json layers = JsonOf("show --json KIRODXF_LAYER");
    EXPECT_EQ(layers["pictureOff"], 257);
    EXPECT_EQ(layers["classLayer"].size(), 257u);
    EXPECT_EQ(layers["classLayer"][2], (Json{{"class", 3}, {"classLayer", "A"}}));
    EXPECT_EQ(layers["colorMap"][256], (Json{{"color", 256}, {"colorMap", 7}}));

    Write("KIRODXF_LINE", "PITCH-P=1.5,-2\nCOMMENT-P= a  b\n");
    const Json pattern = JsonOf("show --json KIRODXF_LINE")["patterns"][0];
    EXPECT_EQ(pattern, (Json{{"patternName", "P"}, {"patternComment", "a  b"}, {"pitch", {1.5, 2.0}}}));
    Write("KIRODXF_STYLE", "");
    const auto font = [](const std::string& option) {
        return JsonOf("show --json " + option + " KIRODXF_STYLE")["styles"][0]["fontFile"];
    };
    EXPECT_EQ(font(""), "monotxt");
    EXPECT_EQ(font("--gx3"), "txt");
    // The host knows the names of arrow heads.
    Write("KIRODXF_ARROW", "ARROW 1, 0 = _DOT\nARROW 2, 0 = NOBODY\nARROW 3, 0 = _DOT\nARROW 4, 0 = _DOT\n");
    ExpectOutput("check KIRODXF_ARROW", ":2: ***** 無効な矢印名です *****\n");
    ExpectOutput("show KIRODXF_ARROW", "\n  1     0      _DOT\n  3-4   0      _DOT\n");
}

TEST_F(KiroTable, FormatLosesNothingUnasked) {
    const std::string damaged = "/ mine\nSTYLE = A, 2,,,,,,,,\nSTYLES\nFONT = 3, 1.5\n";
    Write("DXFKIRO_STYLE", damaged);
    for (const char* loss : {"DXFKIRO_STYLE:3: ***** ", "~ font: 3 -> 0\n"})
        ExpectFailure("format --force --drop-comments DXFKIRO_STYLE", 1, loss);
    EXPECT_EQ(Bytes("DXFKIRO_STYLE"), damaged);
    EXPECT_EQ(Tool("format DXFKIRO_STYLE -o other").status, 1);
    EXPECT_FALSE(fs::exists("other"));

    EXPECT_EQ(Tool("format --drop-errors DXFKIRO_STYLE -o -").out.substr(0, 29), "/ File name : DXFKIRO_STYLE\r\n");
    EXPECT_EQ(Bytes("DXFKIRO_STYLE"), damaged);
    const std::string all = "format --drop-errors --drop-comments --force DXFKIRO_STYLE";
    for (const char* needed : {" --drop-errors", " --drop-comments", " --force"}) {
        std::string without = all;
        ExpectFailure(without.erase(without.find(needed), std::strlen(needed)), 1, "よければ"s + needed);
        EXPECT_EQ(Bytes("DXFKIRO_STYLE"), damaged);
    }
    ExpectFailure(all, 0, "自分で書いた注釈 1 行は");
    EXPECT_EQ(Bytes("DXFKIRO_STYLE.bak"), damaged);
    const std::string formatted = Bytes("DXFKIRO_STYLE");
    EXPECT_TRUE(Has(formatted, "STYLE = A, 2, 0, 1, 0.2, 1.4, 1, 1, 0.95, 0.75\r\n")) << formatted;
    EXPECT_FALSE(Has(formatted, "mine"));
    EXPECT_EQ(Tool("format --force --no-backup DXFKIRO_STYLE").status, 0);
    EXPECT_EQ(Bytes("DXFKIRO_STYLE.bak"), damaged);
    EXPECT_EQ(Tool("new dxfin-style -o DXFKIRO_STYLE --force").status, 0);
    EXPECT_EQ(Body(Bytes("DXFKIRO_STYLE.bak")), Body(formatted)) << "whoever replaces a file keeps it";
    EXPECT_EQ(Tool("format . --kind dxfin-style").status, 2);
    // Pitches without a comment are written with an empty one, which is an error to the reader.
    Write("KIRODXF_LINE", "PITCH-P=1,2\n");
    EXPECT_EQ(Tool("format KIRODXF_LINE").status, 1);
    // Here the writer only adds something.
    Write("KIRODXF_LINE", "PITCH-P=1,2\nCOMMENT-P=p\n");
    EXPECT_EQ(Tool("format --force KIRODXF_LINE").error, "");
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
    fs::rename("DXFKIRO_LINE.b", "old");
    for (const char* names : {"DXFKIRO_LINE.a old", "old DXFKIRO_LINE.a"}) EXPECT_EQ(Tool("diff "s + names).status, 1);
    const Json json = JsonOf("diff --json DXFKIRO_LINE.a old");
    EXPECT_EQ(json["changes"].size(), 7u);
    EXPECT_EQ(json["changes"][2], (Json{{"change", "removed"},
                                        {"section", "lineTypes"},
                                        {"key", "B"},
                                        {"values", "lineFont = 2, lineWeight = 2"}}));
    Write("KIRODXF_LINE", "");
    EXPECT_EQ(Tool("diff DXFKIRO_LINE.a KIRODXF_LINE").status, 2);
    EXPECT_EQ(Tool("diff DXFKIRO_LINE.a nothing").status, 2);
}

TEST_F(KiroTable, CheckSaysWhatIsCutAndRepeated) {
    const std::string name(60, 'n');
    Write("KIRODXF_LAYER", "REVISION 1 = " + name + "xxxx\nREVISION 2 = " + name + "xxx\nPICTURE 1 = " + name +
                               name.substr(30) + "\nPICTURE 01 = A\nPICTURE_OFF 1\nPICTURE_OFF 0\n");
    Write("DXFKIRO_ARROW", "ARROW A = 1, 0, 5\nARROW B = 1, 0, 5\nARROW A = 2, 0, 5\nARROW A = 3, 0, 5\n");
    Write("KIRODXF_LINE", "PITCH-A = 1\nCOMMENT-A = " + name + name.substr(20) + "\nPITCH-A = 2\nCOMMENT-A = a\n");
    Write("DXFKIRO_LAYER", "LAYER CLASSA = 1\nLAYER-CLASS A = 2\n");
    EXPECT_EQ(Tool("check KIRODXF_LAYER DXFKIRO_ARROW KIRODXF_LINE DXFKIRO_LAYER").out,
              "KIRODXF_LAYER:1: 警告: 長すぎる値です。終わりは読まれません\n"
              "KIRODXF_LAYER:3: 警告: 長すぎる値です。終わりは読まれません\n"
              "KIRODXF_LAYER:4: 警告: 同じ名前の行です。3 行目にもあります: 1\n"
              "DXFKIRO_ARROW:3: 警告: 同じ名前の行です。1 行目にもあります: A\n"
              "DXFKIRO_ARROW:4: 警告: 同じ名前の行です。1 行目にもあります: A\n"
              "KIRODXF_LINE:3: 警告: 同じ名前の行です。1 行目にもあります: A\n"
              "KIRODXF_LINE:4: 警告: 同じ名前の行です。2 行目にもあります: A\n"
              "DXFKIRO_LAYER:2: 警告: 同じ名前の行です。1 行目にもあります: CLASSA\n"
              "4 ファイル: エラー 0 件、警告 8 件、読めないファイル 0 件\n");
}

TEST_F(KiroTable, ThousandsOfFindingsAreCounted) {
    std::string lines;
    for (int i = 0; i < 1003; ++i) lines += "x\nLAYER A = 0\n";
    Write("DXFKIRO_LAYER", lines);
    ExpectOutput("check DXFKIRO_LAYER",
                 "DXFKIRO_LAYER:1000: ***** 無効なクラス番号です (1-256) *****\n"
                 "DXFKIRO_LAYER: ほか 503 件: ***** 無効なクラス番号です (1-256) *****\n"
                 "DXFKIRO_LAYER: ほか 503 件: ***** 無効なデータです *****\n"
                 "1 ファイル: エラー 2006 件、");
    const Json file = JsonOf("check --json DXFKIRO_LAYER")["files"][0];
    EXPECT_EQ(file["errors"].size(), 1000u);
    EXPECT_EQ(file["moreErrors"][1], (Json{{"message", "***** 無効なデータです *****"}, {"count", 503}}));
}

TEST_F(KiroTable, OtherCharacterSetsAreNamedAndTakenOver) {
    const std::string utf8 = "/ 壁\nLAYER 表 = 3\nLAYER caf\u00E9 = 4\n", mark = "\xEF\xBB\xBF";
    std::string utf16 = "\xFF\xFE";
    for (const char c : "LAYER A = 3\r\n"s) utf16 += {c, '\0'};
    const std::pair<std::string, std::string> files[] = {
        {utf8, "utf-8"}, {mark + "LAYER A = 3\n", "utf-8"}, {utf16, "utf-16"}, {utf16.substr(2), "utf-16"}};
    for (const auto& [bytes, name] : files) {
        Write("DXFKIRO_LAYER", bytes);
        for (const std::string command : {"check", "show", "format", "diff DXFKIRO_LAYER"})
            ExpectFailure(command + " DXFKIRO_LAYER", 2, "--from " + name + " を付ける");
        ExpectFailure("show DXFKIRO_LAYER", 2, "シフト JIS ではなく");
        ExpectOutput("show DXFKIRO_LAYER --from " + name, "  3\n");
    }
    Write("DXFKIRO_LAYER", utf8);
    ExpectOutput("check --from utf-8 DXFKIRO_LAYER", "DXFKIRO_LAYER:3: シフト JIS にない文字です");
    EXPECT_EQ(Tool("format --from utf-8 DXFKIRO_LAYER -o new").status, 1);
    EXPECT_EQ(Tool("format --from utf-8 --drop-errors DXFKIRO_LAYER -o new").status, 0);
    EXPECT_TRUE(Has(Bytes("new"), "LAYER \x95\x5C = 3\r\nLAYER caf\x81\xAC = 4\r\n")) << Bytes("new");
    Write("list.txt", mark + "LAYER 表 = 3\n");
    ExpectOutput("new dxfin-layer list.txt --from utf-8", "LAYER \x95\x5C = 3\r\n");
    // In code page 932 these are two kana, and in UTF-8 one letter.
    Write("DXFKIRO_LAYER", "LAYER \xC3\xB1 = 3\n");
    ExpectOutput("show DXFKIRO_LAYER", "ﾃｱ");
    Write("DXFKIRO_LAYER", "LAYER \x95\x5C = 3\n");
    ExpectFailure("show --from utf-8 DXFKIRO_LAYER", 2, "UTF-8 として正しくありません");
}

TEST_F(KiroTable, WildcardsAndTheStandardInput) {
    for (const char* name : {"DXFKIRO_LAYER.a", "DXFKIRO_LAYER.b", "DXFKIRO_LINE"}) Write(name, "");
    EXPECT_EQ(Tool("check \"dxfkiro_layer.?\"").out.substr(0, 2), "2 ");
    EXPECT_EQ(Tool("check \"*_L*\"").out.substr(0, 2), "3 ");
    EXPECT_EQ(Tool("show \"*_LINE\"").status, 0);
    ExpectFailure("show \"*.?\"", 2, "*.?: 合うファイルが 2 つ以上あります");
    ExpectFailure("check \"*.c\"", 2, "*.c: 合うファイルがありません");
#ifndef _WIN32
    Write("in", "ARROW bad\n");
    ExpectOutput("check - --kind dxfin-arrow <in", "標準入力:1: *****");
    ExpectOutput("check - --name DXFKIRO_ARROW.x <in", "DXFKIRO_ARROW.x:1: *****");
    ExpectFailure("check - <in", 2, "--kind か --name");
    ExpectOutput("format - --name DXFKIRO_LINE <DXFKIRO_LINE", "LINE-TYPE  CENTER = 3,1\r\n");
#endif
}

TEST_F(KiroTable, CoverageHoldsATableAgainstDrawings) {
    const std::string wall = "\x95\xC7";  // 壁 in code page 932
    Write("a.dxf", Drawing("", "0 LINE/8 " + wall + "/0 LINE/8 my wall/0 LINE/8 X/0 LINE/8 X/0 LINE/8 OTHER"));
    Write("b.dxf", Drawing("", "0 LINE/8 壁/0 LINE/8 caf\u00E9", "", "AC1027"));
    Write("DXFKIRO_LAYER", "LAYER MyWall = 3\n/\nLAYER OTHER = 9\nLAYER " + wall + " = 5\nLAYER none = 6\n");
    const Outcome text = Tool("coverage DXFKIRO_LAYER \"*.dxf\"");
    EXPECT_EQ(text.status, 1);
    EXPECT_EQ(text.out,
              "DXFKIRO_LAYER  図面 2 枚のレイヤ\n"
              "\n[割当てのある名前]\n"
              "         2  壁       layerClass = 5 (4 行目)\n"
              "         1  my wall  layerClass = 3 (1 行目)\n"
              "\n[割当てのない名前]\n"
              "         2  X           OTHER: layerClass = 9 (3 行目)\n"
              "         1  OTHER       OTHER: layerClass = 9 (3 行目)\n"
              "         1  caf\\U+00E9  OTHER: layerClass = 9 (3 行目)\n"
              "\n[図面で使われていない割当て]\n"
              "  none  layerClass = 6 (5 行目)\n"
              "\n名前 5 件: 割当てあり 2 件、割当てなし 3 件。使われていない割当て 1 件\n");
    const Json json = JsonOf("coverage --json DXFKIRO_LAYER a.dxf b.dxf");
    EXPECT_EQ(json["names"][0], (Json{{"name", "X"},
                                      {"count", 2},
                                      {"covered", false},
                                      {"record", {{"layerClassName", "OTHER"}, {"layerClass", 9}, {"line", 3}}}}));
    EXPECT_EQ(json["notCovered"], 3);
    EXPECT_EQ(json["unused"][0]["layerClassName"], "none");
    Write("DXFKIRO_LAYER", "LAYER-SWITCH 1\nLAYER X = 1\nLAYER-REVISION " + wall + " = 7\n");
    ExpectOutput("coverage DXFKIRO_LAYER a.dxf", "壁  layerRevision = 7 (3 行目)\n");

    const std::string tables =
        "0 DIMSTYLE/2 D/342 1/0 BLOCK_RECORD/5 1/2 _Dot/0 BLOCK_RECORD/5 2/2 MINE/0 DIMSTYLE/2 E/342 2";
    Write("c.dxf", Drawing(tables, "0 TEXT/8 0/6 DASHED/0 DIMENSION/8 0/3 D/0 DIMENSION/8 0/3 E"));
    Write("DXFKIRO_ARROW", "ARROW _DOT = 12, 0, 300\n");
    const std::string arrows = Tool("coverage DXFKIRO_ARROW c.dxf").out;
    EXPECT_TRUE(Has(arrows, "_Dot  arrowMark = 12, ") && Has(arrows, "MINE  OTHER: arrowMark = 1, ") &&
                !Has(arrows, "SOLID"))
        << arrows;
    Write("DXFKIRO_STYLE", "");
    EXPECT_EQ(Tool("coverage DXFKIRO_STYLE c.dxf").status, 0) << "a style that the table has from the start";
    Write("DXFKIRO_LINE", "LINE-TYPE A = 1,1\n");
    ExpectOutput("coverage DXFKIRO_LINE c.dxf", "[割当てのない名前]\n         2  CONTINUOUS\n");

    Write("bad.dxf", Drawing("", "0 LINE").substr(0, 50));
    ExpectFailure("coverage DXFKIRO_LAYER a.dxf bad.dxf", 2, "bad.dxf: ファイルが途中で終わっています。");
    EXPECT_EQ(Bytes("run.out"), "");
    ExpectFailure("coverage KIRODXF_LAYER a.dxf --kind dxfout-layer --name x", 2, "ファイルがありません");
    Write("KIRODXF_LAYER", "");
    ExpectFailure("coverage KIRODXF_LAYER a.dxf", 2, "書込みのテーブルです");
}

TEST_F(KiroTable, CollectAddsTheNamesThatATableLacks) {
    const std::string name(60, 'y');  // too long for a revision
    Write("a.dxf",
          Drawing("", "0 LINE/8 " + name +
                          "/0 LINE/8 RARE/0 LINE/8 my wall/0 LINE/8 My Wall/0 LINE/8 MYWALL/0 LINE/8 A=B/0 LINE/8 " +
                          std::string(69, 'x') + "/0 LINE/8 HAD/6 DASHED/0 LINE/8 HAD/6 DASHDOT"));
    ExpectFailure("collect a.dxf -o DXFKIRO_LAYER", 1,
                  "A=B: テーブルに書けない文字があります\nkirotable: " + std::string(69, 'x') + ": 長すぎます");
    const std::string table = Bytes("DXFKIRO_LAYER");
    EXPECT_TRUE(table.ends_with("LAYER HAD = 1\r\nLAYER mywall = 2\r\nLAYER RARE = 3\r\nLAYER " + name +
                                " = 4\r\n/\r\n/ Eof\r\n"))
        << table;
    EXPECT_EQ(Tool("check DXFKIRO_LAYER").out, "1 ファイル: エラー 0 件、警告 0 件、読めないファイル 0 件\n");
    ExpectFailure("collect a.dxf -o DXFKIRO_LAYER", 1, "--force を付けて");
    EXPECT_EQ(Tool("collect a.dxf").status, 2);

    // What stands in a table stays as it is.
    const std::string mine = "/ mine\r\nLAYER-SWITCH 1\r\nLAYER-REVISION HAD = 1\r\nLAYER-REVISION B = 3";
    Write("DXFKIRO_LAYER", mine);
    EXPECT_EQ(Tool("collect a.dxf --into DXFKIRO_LAYER").status, 1);
    EXPECT_EQ(Bytes("DXFKIRO_LAYER"), mine + "\r\nLAYER-REVISION mywall = 2\r\nLAYER-REVISION RARE = 4\r\n");
    EXPECT_EQ(Bytes("DXFKIRO_LAYER.bak"), mine);
    Write("DXFKIRO_LINE", "POLWIDTH-SWITCH 0\n\x1a");
    EXPECT_EQ(Tool("collect a.dxf --into DXFKIRO_LINE").status, 0);
    EXPECT_EQ(Bytes("DXFKIRO_LINE"),
              "POLWIDTH-SWITCH 0\r\nLINE-TYPE  CONTINUOUS = 1,1\r\nLINE-TYPE  DASHED = 2,1\r\n"
              "LINE-TYPE  CENTER = 3,1\r\nLINE-TYPE  PHANTOM = 4,1\r\nLINE-TYPE  DASHDOT = 5,1\r\n");
    const fs::file_time_type then = fs::last_write_time("DXFKIRO_LINE");
    ExpectOutput("collect a.dxf --into DXFKIRO_LINE", "線種の名前を 0 件加えました");
    EXPECT_EQ(fs::last_write_time("DXFKIRO_LINE"), then);
    Write("DXFKIRO_LINE", "x\n");
    EXPECT_EQ(Tool("collect a.dxf --into DXFKIRO_LINE").status, 2);
    EXPECT_EQ(Bytes("DXFKIRO_LINE"), "x\n");

    Write("b.dxf", Drawing("0 DIMSTYLE/2 D/5 _DOT", "0 TEXT/7 ROMAN/0 DIMENSION/3 D", "", "AC1009"));
    ExpectOutput("collect b.dxf --kind dxfin-style -o -",
                 "DIM_2TO1 = OFF\r\nSTYLE = ROMAN, 1.1875, 0, 1, 0.2, 1.4, 1, 1, 0.95, 0.75\r\n/\r\n");
    ExpectOutput("collect b.dxf --kind dxfin-arrow -o -", "\r\nARROW _DOT =    2,   0,  300\r\n/\r\n");
    std::string many;
    for (int i = 0; i < 300; ++i) many += "0 LINE/6 T" + std::to_string(i) + "/";
    Write("b.dxf", Drawing("", many));
    const Outcome full = Tool("collect b.dxf -o DXFKIRO_LINE.full");
    EXPECT_EQ(full.status, 1);
    EXPECT_TRUE(Has(full.error, "テーブルに入りきりません") && Has(full.out, "252 件")) << full.out;
    ExpectOutput("coverage DXFKIRO_LINE.full b.dxf", "252 件、割当てなし 48 件");
}

TEST_F(KiroTable, FileNamesInAnyScript) {
    const std::string name = "表 \u00E9 \uD55C";  // code page 932 has the first of them only
    EXPECT_EQ(Tool("new dxfin-arrow -o \"" + name + "\"").status, 0);
    const std::string head = Bytes(name);
    EXPECT_TRUE(Has(head.substr(0, head.find('\r')) + "|", "\x95\x5C \x81\xAC \x81\xAC|")) << head;
    const Json json = JsonOf("check --json --kind dxfin-arrow \"" + name + "\"");
    EXPECT_EQ(json["files"][0]["file"], name);
    EXPECT_EQ(json["unreadable"], 0);
}

#ifndef _WIN32
TEST_F(KiroTable, FullDiskLeavesTheOldFile) {
    const std::string old = "LAYER A = 5\n";
    Write("DXFKIRO_LAYER", old);
    EXPECT_EQ(System("ulimit -f 1; " + tool.string() + " format --force DXFKIRO_LAYER 2>run.err"), 2);
    EXPECT_TRUE(Has(Bytes("run.err"), "書けません")) << Bytes("run.err");
    EXPECT_EQ(Bytes("DXFKIRO_LAYER"), old);
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()),
              3);  // with the messages and the copy
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
