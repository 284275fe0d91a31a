// kiroconvert: converts drawings by the tables and parameters of the dialogs, without a window.
#include <charconv>

#include "Conversion.h"
#include "tools/cli/CommandLine.h"

namespace kiroconvert {

namespace {

constexpr char kText[] =
    "ＤＸＦの図面を、変換テーブルとパラメータのとおりに変換します。\n"
    "図面をモデルの内容にし、そこから図面を書きます。表示は UTF-8 です。\n";
constexpr char kFooter[] =
    "例:\n"
    "  kiroconvert plan.dxf -o new.dxf --to 2000\n"
    "  kiroconvert \"in/*.dxf\" -o out --tables tables --params params.json\n"
    "\n"
    "終了状態: 0 すべて変換した、1 変換しきれないものがあった、2 引数の誤り、または読めない・書けない図面があった";

struct Words {
    std::vector<std::string> inputs;
    std::string output, tables, params;
    int version = 0, picture = 1;
    bool binary = false, json = false;
};

std::string TakeVersion(const std::string& name, Words& words) {
    if (name == "GX-3") return "GX-3 の書込みには対応していません";
    words.version = VersionOf(name);
    return words.version > 0 ? "" : name + " という版はありません (R13、R14、2000、2004、2007、2010、2013)";
}

std::string TakePicture(const std::string& text, Words& words) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), words.picture);
    const bool good = error == std::errc() && end == text.data() + text.size() && words.picture != 0;
    return good && words.picture >= -256 && words.picture <= 256 ? "" : text + " は使えない番号です";
}

int Convert(const Words& words) {
    if (words.output.empty()) throw cli::Failure("-o で書くファイルかフォルダを指定してください");
    Settings settings = DefaultSettings();
    if (!words.tables.empty()) ReadTables(words.tables, settings);
    if (!words.params.empty()) ReadParameters(words.params, settings);
    if (words.version > 0) settings.output.params.outputVersion = words.version;
    if (words.binary) settings.output.params.binaryFormat = 1;
    settings.import.pictureNumber = words.picture;
    std::vector<Outcome> outcomes;
    for (const Job& job : PlanJobs(words.inputs, words.output)) {
        outcomes.push_back(RunJob(job, settings));
        if (!words.json) PrintOutcome(outcomes.back());
    }
    if (words.json) PrintJsonOf(outcomes);
    return StatusOf(outcomes);
}

int Run(const std::vector<std::string>& arguments) {
    Words words;
    const cli::Command convert = {
        "",
        kText,
        kFooter,
        {"IN...", "読む図面。* と ? が使えます", &words.inputs, 1, cli::kAny},
        {cli::Word("-o,--output", "OUT", "書くファイル。または、すべてを書くフォルダ (必須)", words.output),
         cli::Word("--tables", "DIR", "変換テーブルのあるフォルダ", words.tables),
         cli::Word("--params", "FILE", "変換パラメータのファイル (JSON)", words.params),
         {"--to", "VERSION", "書く版: R13、R14、2000、2004、2007、2010、2013 (なければ 2013)",
          [&](const std::string& name) { return TakeVersion(name, words); }},
         cli::Flag("--binary", "バイナリで書きます", words.binary),
         {"--picture", "N", "格納先ピクチャ (-256～-1、1～256)。負の番号はレイアウトを使いません",
          [&](const std::string& text) { return TakePicture(text, words); }},
         cli::Flag("--json", "結果を JSON で表示します", words.json)},
        [&] { return Convert(words); }};
    return cli::Run({"kiroconvert", KIROCONVERT_VERSION, "", "", {convert}}, arguments);
}

}  // namespace

}  // namespace kiroconvert

int main(int count, char** words) { return cli::Main(count, words, "kiroconvert", kiroconvert::Run); }
