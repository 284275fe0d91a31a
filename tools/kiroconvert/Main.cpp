// kiroconvert: converts drawings by the tables and parameters of the dialogs, without a window.
#include <CLI/CLI.hpp>

#include <sstream>

#include "Conversion.h"
#include "tools/kirotable/Console.h"

namespace kiroconvert {

namespace {

using kirotable::Print;
using kirotable::PrintError;

constexpr char kDescription[] =
    "ＤＸＦの図面を、変換テーブルとパラメータのとおりに変換します。\n"
    "図面をモデルの内容にし、そこから図面を書きます。表示は UTF-8 です。";
constexpr char kFooter[] =
    "\n例:\n"
    "  kiroconvert plan.dxf -o new.dxf --to 2000\n"
    "  kiroconvert \"in/*.dxf\" -o out --tables tables --params params.json\n"
    "\n"
    "終了状態: 0 すべて変換した、1 変換しきれないものがあった、2 引数の誤り、または読めない・書けない図面があった";

std::string CheckVersion(const std::string& name) {
    if (name == "GX-3") return "GX-3 の書込みには対応していません";
    return VersionOf(name) > 0 ? "" : name + " という版はありません (R13、R14、2000、2004、2007、2010、2013)";
}

class CommandLine {
  public:
    CommandLine();
    int Run(std::vector<std::string> arguments);

  private:
    int Explain(const CLI::ParseError& error);
    int Convert();

    CLI::App app_{kDescription, "kiroconvert"};
    std::vector<std::string> inputs_;
    std::string output_, tables_, params_, version_;
    int picture_ = 1;
    bool binary_ = false, json_ = false;
};

CommandLine::CommandLine() {
    // A path that starts with "/" is no option on Windows either.
    app_.allow_windows_style_options(false);
    const auto formatter = std::make_shared<CLI::Formatter>();
    formatter->label("Usage", "使い方");
    formatter->label("Positionals", "引数");
    formatter->label("OPTIONS", "オプション");
    formatter->label("REQUIRED", "(必須)");
    formatter->label("TEXT", "");
    formatter->label("INT", "");
    formatter->column_width(24);
    app_.formatter(formatter);
    app_.option_defaults()->group("オプション");
    app_.set_help_flag("-h,--help", "この説明を表示して終わります");
    app_.set_version_flag("--version", "kiroconvert " KIROCONVERT_VERSION, "版を表示して終わります");
    app_.footer(kFooter);
    app_.add_option("IN", inputs_, "読む図面。* と ? が使えます")->required();
    app_.add_option("-o,--output", output_, "書くファイル。または、すべてを書くフォルダ")
        ->required()
        ->option_text("OUT");
    app_.add_option("--tables", tables_, "変換テーブルのあるフォルダ")->option_text("DIR");
    app_.add_option("--params", params_, "変換パラメータのファイル (JSON)")->option_text("FILE");
    app_.add_option("--to", version_, "書く版: R13、R14、2000、2004、2007、2010、2013 (なければ 2013)")
        ->check(CheckVersion)
        ->option_text("VERSION");
    app_.add_flag("--binary", binary_, "バイナリで書きます");
    app_.add_option("--picture", picture_, "格納先ピクチャ (-256～-1、1～256)。負の番号はレイアウトを使いません")
        ->check([](const std::string& text) {
            const int number = std::atoi(text.c_str());
            return number != 0 && number >= -256 && number <= 256 ? "" : text + " は使えない番号です";
        })
        ->option_text("N");
    app_.add_flag("--json", json_, "結果を JSON で表示します");
}

int CommandLine::Run(std::vector<std::string> arguments) {
    std::reverse(arguments.begin(), arguments.end());  // as the parser wants them
    try {
        app_.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return Explain(error);
    }
    return Convert();
}

int CommandLine::Convert() {
    Settings settings = DefaultSettings();
    if (!tables_.empty()) ReadTables(tables_, settings);
    if (!params_.empty()) ReadParameters(params_, settings);
    if (!version_.empty()) settings.output.params.outputVersion = VersionOf(version_);
    if (binary_) settings.output.params.binaryFormat = 1;
    settings.import.pictureNumber = picture_;
    std::vector<Outcome> outcomes;
    for (const Job& job : PlanJobs(inputs_, output_)) {
        outcomes.push_back(RunJob(job, settings));
        if (!json_) PrintOutcome(outcomes.back());
    }
    if (json_) PrintJsonOf(outcomes);
    return StatusOf(outcomes);
}

int CommandLine::Explain(const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
        std::ostringstream out, none;
        app_.exit(error, out, none);
        Print(out.str());
        return kFine;
    }
    PrintError(std::string("引数が正しくありません (") + error.what() + ")");
    PrintError("使い方は kiroconvert --help で出ます");
    return kTrouble;
}

}  // namespace

}  // namespace kiroconvert

int main(int count, char** words) {
    const kirotable::Console console("kiroconvert");
    try {
        const int status = kiroconvert::CommandLine().Run(kirotable::Arguments(count, words));
        if (kirotable::FlushOutput()) return status;
        kirotable::PrintError("標準出力に書けません");
    } catch (const std::exception& error) {
        kirotable::PrintError(error.what());
    }
    return kiroconvert::kTrouble;
}
