// What became of the drawings, for people and as JSON.
#include <iterator>

#include "Conversion.h"
#include "tools/cli/Console.h"
#include "tools/cli/Json.h"
#include "tools/cli/Text.h"

namespace kiroconvert {

namespace {

using cli::Json;
using cli::Print;
using cli::Printable;
using convert::Fate;

constexpr struct {
    const char* name;
    const char* title;
} kFates[] = {
    {"layerByTable", "レイヤ(テーブル)"},
    {"layerAutomatic", "レイヤ(自動)"},
    {"lineTypeByTable", "線種(テーブル)"},
    {"lineTypeAutomatic", "線種(自動)"},
    {"hiddenLeftOut", "変換しない非表示アイテム"},
    {"madeAnew", "作り直す表とオブジェクト"},
    {"layerNotInTable", "テーブルにないレイヤ"},
    {"layersMerged", "番号が足りないレイヤ"},
    {"lineTypeNotInTable", "テーブルにない線種"},
    {"lineTypesMerged", "番号が足りない線種"},
    {"widthNotAssigned", "割り当てられない線幅"},
    {"numberNotInTable", "書込みのテーブルにない番号"},
    {"colorNotInTable", "書込みのテーブルにない色"},
    {"typeNotWritten", "書けない種類のアイテム"},
    {"noSuchBlock", "ブロックのない配置"},
    {"otherLayout", "ほかのレイアウトのアイテム"},
    {"valueNotWritten", "この版にない値"},
    {"linkNotWritten", "書かない参照"},
    {"widthNotWritten", "書けない線幅"},
    {"patternSimplified", "文字や図形を除いた線種"},
    {"nameChanged", "変えた名前"},
    {"textCut", "長すぎて切った文字"},
    {"notExpanded", "展開しないブロック"},
    {"blockKept", "同じ名前のあるブロック"},
    {"codePageNotKnown", "分からない文字コード"},
};
static_assert(std::size(kFates) == static_cast<std::size_t>(Fate::kFates));

void PrintNotes(const convert::Summary& summary) {
    constexpr std::size_t kShown = 8;
    const auto& notes = summary.Notes();
    for (auto note = notes.begin(); note != notes.end();) {
        const Fate fate = note->first.first;
        std::size_t total = 0, shown = 0;
        std::string details;
        for (; note != notes.end() && note->first.first == fate; ++note) {
            total += note->second;
            if (fate < Fate::kFirstLoss || shown == kShown) continue;
            details += (shown++ ? "、" : ": ") + Printable(note->first.second);
            if (note->second > 1) details += " (" + std::to_string(note->second) + ")";
        }
        const char* const mark = fate < Fate::kFirstLoss ? "  " : "! ";
        Print(std::string("  ") + mark + kFates[static_cast<std::size_t>(fate)].title + " " + std::to_string(total) +
              details + (shown == kShown ? " など" : "") + "\n");
    }
}

Json NotesOf(const convert::Summary& summary) {
    Json all = Json::object();
    for (const auto& [note, count] : summary.Notes())
        all[kFates[static_cast<std::size_t>(note.first)].name].push_back({{"detail", note.second}, {"count", count}});
    return all;
}

}  // namespace

void PrintOutcome(const Outcome& outcome) {
    if (!outcome.failure.empty()) return cli::PrintError(outcome.job.input + ": " + outcome.failure);
    Print(Printable(outcome.job.input + " -> " + outcome.job.output) + "\n");
    Print("    アイテム " + std::to_string(outcome.read.items) + " 件を読み、" + std::to_string(outcome.written.items) +
          " 件を書きました。ブロック " + std::to_string(outcome.read.blocks) + " 個\n");
    PrintNotes(outcome.read);
    PrintNotes(outcome.written);
}

void PrintJsonOf(const std::vector<Outcome>& outcomes) {
    Json files = Json::array();
    for (const Outcome& outcome : outcomes) {
        Json entry = {{"file", outcome.job.input}, {"output", outcome.job.output}};
        if (!outcome.failure.empty()) {
            entry["failure"] = outcome.failure;
        } else {
            entry["complete"] = outcome.IsComplete();
            entry["read"] = {{"items", outcome.read.items}, {"blocks", outcome.read.blocks}};
            entry["written"] = {{"items", outcome.written.items}, {"blocks", outcome.written.blocks}};
            entry["read"]["notes"] = NotesOf(outcome.read);
            entry["written"]["notes"] = NotesOf(outcome.written);
        }
        files.push_back(std::move(entry));
    }
    cli::PrintJson({{"files", files}});
}

}  // namespace kiroconvert
