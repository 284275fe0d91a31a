// kirotable: looks after conversion tables from the command line.
#include <CLI/CLI.hpp>

#include <exception>
#include <functional>
#include <sstream>

#include "Commands.h"
#include "Console.h"
#include "TableKind.h"

namespace kirotable {

namespace {

constexpr char kDescription[] =
    "変換テーブルを調べ、表示し、書き直し、比べます。読み書きは画面と同じ方法でします。\n"
    "表示は UTF-8 です。テーブルのファイルはシフト JIS (コードページ 932) です。";
constexpr char kCheckText[] = "ファイルを調べ、誤りのある行を「ファイル:行: メッセージ」で示します。";
constexpr char kCheckFooter[] =
    "誤り(エラー)は画面で読んだときと同じものです。警告は、読めても元のままでは\n"
    "ないものです: 長すぎる行、名前の途中の空白、同じ名前、知らないキーワード、書き戻すと変わる値\n"
    "\n"
    "例:\n"
    "  kirotable check DXFKIRO_LAYER DXFKIRO_LINE\n"
    "  kirotable check --kind dxfin-layer backup.txt\n"
    "  kirotable check --json KIRODXF_LINE\n"
    "\n"
    "終了状態: 0 エラーなし(警告だけのときも)、1 エラーあり、2 読めないファイルあり";
constexpr char kShowText[] = "テーブルの中身を表示します。";
constexpr char kShowFooter[] =
    "番号が続いて値が同じ行は 5-257 のように 1 行にまとめます。--json ではまとめません。\n"
    "\n"
    "例:\n"
    "  kirotable show DXFKIRO_ARROW\n"
    "  kirotable show --json KIRODXF_LAYER\n"
    "\n"
    "終了状態: 0 表示した、2 読めない";
constexpr char kFormatText[] = "テーブルを読み、決まった書式で書き直します。";
constexpr char kFormatFooter[] =
    "-o がなければ FILE そのものを置き換えます。置き換えは一度に行われ、途中で止まっても前の\n"
    "ファイルか新しいファイルのどちらかが残ります。誤りのある行や、書き戻すと変わる値があれば、\n"
    "何も書かずに終わります(--force を付けると書きます)。自分で書いた注釈の行は残りません。\n"
    "\n"
    "例:\n"
    "  kirotable format DXFKIRO_STYLE\n"
    "  kirotable format -o new.txt DXFKIRO_STYLE\n"
    "\n"
    "終了状態: 0 書いた、1 元のとおりに書き戻せないので書かなかった、2 読めない、または書けない";
constexpr char kNewText[] = "最初の内容のテーブルを作ります。";
constexpr char kNewFooter[] =
    "-o がなければ標準出力に書きます。\n"
    "\n"
    "例:\n"
    "  kirotable new dxfin-layer\n"
    "  kirotable new dxfout-line -o KIRODXF_LINE\n"
    "\n"
    "終了状態: 0 書いた、1 すでにあるので書かなかった、2 書けない";
constexpr char kDiffText[] = "2 つのテーブルを、行の名前で突き合わせて比べます。";
constexpr char kDiffFooter[] =
    "  -  A だけにある行    +  B だけにある行    ~  値の違う行\n"
    "行の順番、注釈、日付は比べません。\n"
    "\n"
    "例:\n"
    "  kirotable diff DXFKIRO_LAYER DXFKIRO_LAYER.old\n"
    "\n"
    "終了状態: 0 同じ、1 違う、2 読めない、または種類が違う";

std::string KindList() {
    std::string text = "種類 (KIND) と、種類の分かるファイル名:\n";
    for (const TableKind& kind : kTableKinds) {
        std::string name(kind.name), file(kind.file);
        name.resize(14, ' ');
        text += "  " + name + file + "*";
        text.append(16 - file.size(), ' ').append(kind.title).append("\n");
    }
    return text;
}

std::string CheckKind(const std::string& name) {
    return FindKind(name) ? "" : name + " という種類はありません。--help で一覧が出ます";
}

// The commands, their words and what they are to do; the texts stay together with the words they describe.
class CommandLine {
  public:
    CommandLine();
    // The exit status.
    int Run(std::vector<std::string> arguments);

  private:
    CLI::App* Add(const char* name, const char* description, const char* footer, std::function<int()> run);
    void AddKind(CLI::App& command);
    void AddGx3(CLI::App& command);
    int Explain(const CLI::ParseError& error);

    CLI::App app_{kDescription, "kirotable"};
    std::vector<std::pair<CLI::App*, std::function<int()>>> commands_;
    std::vector<std::string> files_;
    std::string file_, other_, output_, kind_;
    CommonOptions options_;
};

CommandLine::CommandLine() {
    // A path that starts with "/" is no option on Windows either.
    app_.allow_windows_style_options(false);
    const auto formatter = std::make_shared<CLI::Formatter>();
    formatter->label("Usage", "使い方");
    formatter->label("Positionals", "引数");
    formatter->label("OPTIONS", "オプション");
    formatter->label("SUBCOMMAND", "コマンド");
    formatter->label("REQUIRED", "(必須)");
    formatter->label("TEXT", "");
    formatter->column_width(24);
    app_.formatter(formatter);
    app_.option_defaults()->group("オプション");
    app_.set_help_flag("-h,--help", "この説明を表示して終わります");
    app_.set_version_flag("--version", "kirotable " KIROTABLE_VERSION, "版を表示して終わります");
    app_.require_subcommand(1);
    app_.footer(KindList() + "\n例:\n  kirotable check DXFKIRO_LAYER\n  kirotable check --help");

    CLI::App* check = Add("check", kCheckText, kCheckFooter, [this] { return Check(files_, options_); });
    check->add_option("FILE", files_, "調べるファイル")->required();
    check->add_flag("--json", options_.json, "JSON で表示します");
    CLI::App* show = Add("show", kShowText, kShowFooter, [this] { return Show(file_, options_); });
    show->add_option("FILE", file_, "表示するファイル")->required();
    show->add_flag("--json", options_.json, "JSON で表示します");
    CLI::App* format = Add("format", kFormatText, kFormatFooter, [this] { return Format(file_, output_, options_); });
    format->add_option("FILE", file_, "書き直すファイル")->required();
    format->add_option("-o,--output", output_, "書く先。- は標準出力")->option_text("OUT");
    format->add_flag("--force", options_.force, "元のとおりに書き戻せなくても書きます");
    CLI::App* make = Add("new", kNewText, kNewFooter,
                         [this] { return New(*options_.kind, output_.empty() ? "-" : output_, options_); });
    make->add_option("KIND", kind_, "種類")->required()->check(CheckKind);
    make->add_option("-o,--output", output_, "書く先。- は標準出力")->option_text("OUT");
    make->add_flag("--force", options_.force, "すでにあるファイルを置き換えます");
    CLI::App* diff = Add("diff", kDiffText, kDiffFooter, [this] { return Diff(file_, other_, options_); });
    diff->add_option("A", file_, "比べるファイル")->required();
    diff->add_option("B", other_, "比べるファイル")->required();

    for (CLI::App* command : {check, show, format, diff}) AddKind(*command);
    for (CLI::App* command : {check, show, format, make, diff}) AddGx3(*command);
}

CLI::App* CommandLine::Add(const char* name, const char* description, const char* footer, std::function<int()> run) {
    CLI::App* command = app_.add_subcommand(name, description);
    command->group("コマンド");
    command->set_help_flag("-h,--help", "この説明を表示して終わります");
    command->footer(footer);
    commands_.emplace_back(command, std::move(run));
    return command;
}

void CommandLine::AddKind(CLI::App& command) {
    command.add_option("--kind", kind_, "種類。ファイル名から分かるときは要りません (一覧: kirotable --help)")
        ->check(CheckKind)
        ->option_text("KIND");
}

void CommandLine::AddGx3(CLI::App& command) {
    command.add_flag("--gx3", options_.read.gx3, "dxfout-style だけ: GX-3 で書き込むときの初期値を使います");
}

int CommandLine::Run(std::vector<std::string> arguments) {
    std::reverse(arguments.begin(), arguments.end());  // as the parser wants them
    try {
        app_.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return Explain(error);
    }
    options_.kind = FindKind(kind_);
    for (const auto& [command, run] : commands_)
        if (command->parsed()) return run();
    return kTrouble;
}

int CommandLine::Explain(const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
        std::ostringstream out, none;
        app_.exit(error, out, none);
        Print(out.str());
        return kFine;
    }
    const auto* what = dynamic_cast<const CLI::RequiredError*>(&error)     ? "引数が足りません"
                       : dynamic_cast<const CLI::ExtrasError*>(&error)     ? "余分な引数があります"
                       : dynamic_cast<const CLI::ValidationError*>(&error) ? "値が違います"
                                                                           : "引数が正しくありません";
    std::string command = "kirotable";
    for (const CLI::App* sub : app_.get_subcommands()) command += " " + sub->get_name();
    PrintError(std::string(what) + " (" + error.what() + ")");
    PrintError("使い方は " + command + " --help で出ます");
    return kTrouble;
}

}  // namespace

}  // namespace kirotable

int main(int count, char** words) {
    using namespace kirotable;
    const Console console;
    try {
        const int status = CommandLine().Run(Arguments(count, words));
        if (FlushOutput()) return status;
        PrintError("標準出力に書けません");
    } catch (const std::exception& error) {
        PrintError(error.what());
    }
    return kTrouble;
}
