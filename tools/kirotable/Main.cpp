// kirotable: looks after conversion tables from the command line.
#include "Commands.h"
#include "tools/cli/CommandLine.h"
#include "tools/cli/Files.h"

namespace kirotable {

namespace {

using cli::Command;
using cli::Flag;
using cli::kAny;
using cli::Option;
using cli::Word;

constexpr char kDescription[] =
    "変換テーブルを調べ、表示し、書き直し、比べます。図面の名前との突合せもします。\n"
    "読み書きは画面と同じ方法でします。表示は UTF-8 です。テーブルのファイルはシフト JIS\n"
    "(コードページ 932) です。";
constexpr char kCheckText[] = "ファイルを調べ、誤りのある行を「ファイル:行: メッセージ」で示します。";
constexpr char kCheckFooter[] =
    "誤り(エラー)は画面で読んだときと同じものです。警告は、読めても元のままでは\n"
    "ないものです: 長すぎる行、長すぎる値、名前の途中の空白、同じ名前の行、知らないキーワード、\n"
    "書き戻すと変わる値\n"
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
    "-o がなければ FILE そのものを置き換えます。すでにあるファイルを置き換えるには --force が要り、\n"
    "前のファイルは NAME.bak に残ります。置き換えは一度に行われ、途中で止まっても前のファイルか\n"
    "新しいファイルのどちらかが残ります。失われるものがあれば、何も書かずに終わります:\n"
    "自分で書いた注釈は --drop-comments、誤りのある行と書き戻すと変わる値は --drop-errors で書きます。\n"
    "\n"
    "例:\n"
    "  kirotable format --force DXFKIRO_STYLE\n"
    "  kirotable format -o new.txt DXFKIRO_STYLE\n"
    "  kirotable format --from utf-8 --force DXFKIRO_LAYER\n"
    "\n"
    "終了状態: 0 書いた、1 失われるものがある、またはすでにあるので書かなかった、2 読めない、または書けない";
constexpr char kNewText[] = "最初の内容のテーブルを作ります。";
constexpr char kNewFooter[] =
    "-o がなければ標準出力に書きます。FILE があれば、その行を読んで加えます。\n"
    "\n"
    "例:\n"
    "  kirotable new dxfin-layer\n"
    "  kirotable new dxfout-line -o KIRODXF_LINE\n"
    "  kirotable new dxfin-layer list.txt --from utf-8 -o DXFKIRO_LAYER\n"
    "\n"
    "終了状態: 0 書いた、1 すでにある、または失われるものがあるので書かなかった、2 読めない、または書けない";
constexpr char kDiffText[] = "2 つのテーブルを、行の名前で突き合わせて比べます。";
constexpr char kDiffFooter[] =
    "  -  A だけにある行    +  B だけにある行    ~  値の違う行\n"
    "行の順番、注釈、日付は比べません。種類は、どちらかの名前から分かれば足ります。\n"
    "\n"
    "例:\n"
    "  kirotable diff DXFKIRO_LAYER DXFKIRO_LAYER.old\n"
    "  kirotable diff --json DXFKIRO_LAYER old.txt\n"
    "\n"
    "終了状態: 0 同じ、1 違う、2 読めない、または種類が違う";
constexpr char kCoverageText[] = "図面で使われている名前を、読込みのテーブルと突き合わせます。";
constexpr char kCoverageFooter[] =
    "レイヤ、線種、文字スタイル、矢印のうち、テーブルの種類のものを調べます。図面はテキストと\n"
    "バイナリの DXF です。名前は英字の大文字と小文字を区別せず、空白を除いて比べます。\n"
    "\n"
    "例:\n"
    "  kirotable coverage DXFKIRO_LAYER plan.dxf\n"
    "  kirotable coverage --json DXFKIRO_LINE \"drawings/*.dxf\"\n"
    "\n"
    "終了状態: 0 すべての名前に割当てがある、1 割当てのない名前がある、2 読めない";
constexpr char kCollectText[] = "図面で使われていてテーブルにない名前を、使用数の多い順に加えます。";
constexpr char kCollectFooter[] =
    "-o は新しいテーブルを作ります。--into はあるテーブルに行を加え、注釈も含めてほかの行は\n"
    "変えません(前のファイルは NAME.bak に残ります)。番号は空いているものを順に付けるので、\n"
    "画面かエディタで直してください。\n"
    "\n"
    "例:\n"
    "  kirotable collect \"drawings/*.dxf\" -o DXFKIRO_LAYER\n"
    "  kirotable collect plan.dxf --into DXFKIRO_LINE\n"
    "\n"
    "終了状態: 0 書いた、1 加えられない名前がある、またはすでにあるので書かなかった、2 読めない、または書けない";

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

std::string UnknownKind(const std::string& name) {
    std::vector<std::string> names;
    for (const TableKind& kind : kTableKinds) names.emplace_back(kind.name);
    const std::string nearest = cli::Nearest(name, names);
    return name + " という種類はありません" + (nearest.empty() ? "" : "。" + nearest + " ではありませんか") +
           "。--help で一覧が出ます";
}

// The commands with their words and what they are to do.
class CommandLine {
  public:
    int Run(const std::vector<std::string>& arguments);

  private:
    std::vector<Command> Commands();
    std::vector<Option> With(std::vector<Option> options, std::initializer_list<Option> more) {
        options.insert(options.end(), more);
        return options;
    }
    std::string TakeKind(const std::string& name);
    std::string TakeFrom(const std::string& name);
    std::string OneFile(std::size_t word) const;

    std::vector<std::string> words_;
    std::string output_, into_;
    CommonOptions options_;
};

std::string CommandLine::TakeKind(const std::string& name) {
    options_.kind = FindKind(name);
    return options_.kind ? "" : UnknownKind(name);
}

std::string CommandLine::TakeFrom(const std::string& name) {
    for (const Charset charset : {Charset::kCp932, Charset::kUtf8, Charset::kUtf16}) {
        if (name != NameOfCharset(charset)) continue;
        options_.from = charset;
        return "";
    }
    return name + " という文字コードはありません (cp932、utf-8、utf-16)";
}

// A name that stands for one file.
std::string CommandLine::OneFile(std::size_t word) const {
    const std::vector<std::string> files = cli::Expanded(words_[word]);
    if (files.size() > 1) throw cli::Failure(words_[word] + ": 合うファイルが 2 つ以上あります");
    return files[0];
}

std::vector<Command> CommandLine::Commands() {
    const Option kind = {"--kind", "KIND", "種類。ファイル名から分かるときは要りません (一覧: kirotable --help)",
                         [this](const std::string& name) { return TakeKind(name); }};
    const Option from = {"--from", "CODE", "ファイルの文字コード: cp932 (なければこれ)、utf-8、utf-16",
                         [this](const std::string& name) { return TakeFrom(name); }};
    const Option name = Word("--name", "NAME", "- (標準入力) のファイルの名前。種類が分かります", options_.name);
    const Option gx3 = Flag("--gx3", "dxfout-style だけ: GX-3 で書き込むときの初期値を使います", options_.read.gx3);
    const Option json = Flag("--json", "JSON で表示します", options_.json);
    const Option output = Word("-o,--output", "OUT", "書く先。- は標準出力", output_);
    const Option force = Flag("--force", "すでにあるファイルを置き換えます", options_.force);
    const Option comments = Flag("--drop-comments", "自分で書いた注釈が失われても書きます", options_.dropComments);
    const Option errors =
        Flag("--drop-errors", "誤りのある行や変わる値を元のとおりに書き戻せなくても書きます", options_.dropErrors);
    const Option noBackup = Flag("--no-backup", "前のファイルを NAME.bak に残しません", options_.noBackup);
    const Option euc = Flag("--euc", "2004 までの版の図面の文字を EUC として読みます", options_.euc);
    const std::vector<Option> reading = {kind, from, name, gx3};
    const auto drawings = [this](std::size_t first) {
        return cli::Expanded(
            std::vector<std::string>(words_.begin() + static_cast<std::ptrdiff_t>(first), words_.end()));
    };

    return {
        {"check",
         kCheckText,
         kCheckFooter,
         {"FILE...", "調べるファイル。* と ? が使えます。- は標準入力", &words_, 1, kAny},
         With(reading, {json}),
         [this] { return Check(cli::Expanded(words_), options_); }},
        {"show",
         kShowText,
         kShowFooter,
         {"FILE", "表示するファイル。- は標準入力", &words_, 1, 1},
         With(reading, {json}),
         [this] { return Show(OneFile(0), options_); }},
        {"format",
         kFormatText,
         kFormatFooter,
         {"FILE", "書き直すファイル。- は標準入力", &words_, 1, 1},
         With(reading, {output, force, comments, errors, noBackup}),
         [this] { return Format(OneFile(0), output_, options_); }},
        {"new",
         kNewText,
         kNewFooter,
         {"KIND [FILE]", "種類と、行を読むファイル。- は標準入力", &words_, 1, 2},
         {from, gx3, output, force, errors, noBackup},
         [this] {
             const std::string wrong = TakeKind(words_[0]);
             if (!wrong.empty()) throw cli::Failure(wrong);
             return New(*options_.kind, words_.size() > 1 ? OneFile(1) : "", output_.empty() ? cli::kStandard : output_,
                        options_);
         }},
        {"diff",
         kDiffText,
         kDiffFooter,
         {"A B", "比べるファイル。どちらかは - (標準入力) でもかまいません", &words_, 2, 2},
         With(reading, {json}),
         [this] { return Diff(OneFile(0), OneFile(1), options_); }},
        {"coverage",
         kCoverageText,
         kCoverageFooter,
         {"TABLE DRAWING...", "テーブルと図面。図面には * と ? が使えます", &words_, 2, kAny},
         With(reading, {json, euc}),
         [this, drawings] { return Coverage(OneFile(0), drawings(1), options_); }},
        {"collect",
         kCollectText,
         kCollectFooter,
         {"DRAWING...", "図面。* と ? が使えます", &words_, 1, kAny},
         {output, Word("--into", "TABLE", "行を加えるテーブル", into_), kind, from, force, noBackup, euc},
         [this, drawings] { return Collect(drawings(0), output_, into_, options_); }},
    };
}

int CommandLine::Run(const std::vector<std::string>& arguments) {
    return cli::Run({"kirotable", KIROTABLE_VERSION, kDescription,
                     KindList() + "\n例:\n  kirotable check DXFKIRO_LAYER\n  kirotable check --help", Commands()},
                    arguments);
}

}  // namespace

}  // namespace kirotable

int main(int count, char** words) {
    return cli::Main(count, words, "kirotable",
                     [](const std::vector<std::string>& arguments) { return kirotable::CommandLine().Run(arguments); });
}
