// The choices of a dialog that are words of a parameter block: a table of radio buttons, check boxes, lists and
// numbers, each with its word and the values that it gives the word. All words are 32-bit integers.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "entry/host/KrUtility.h"
#include "text/Numbers.h"
#include "ui/MessageBoxes.h"
#include "ui/RadioGroup.h"

namespace kiro::ui {

// What becomes of a value that no button has, when the user leaves the button that shows it: it becomes the value of
// that button, or it stays.
enum class OddWords { kReplaced, kKept };

template <class Block>
class WordChoices {
  public:
    using Word = std::int32_t Block::*;

    explicit WordChoices(Dialog& dialog, OddWords odd = OddWords::kReplaced) : dialog_(dialog), odd_(odd) {}

    // values: one a button, in their order. otherwise: the button that shows any other value; -1: none does, and the
    // word stays as it is until one is chosen.
    void Radios(Word word, RadioGroup radios, std::vector<std::int32_t> values, int otherwise = 0) {
        rows_.push_back({[=](const Block& block) { radios.Select(IndexOf(values, block.*word, otherwise)); },
                         [=, this](Block& block) {
                             const int chosen = radios.Selected();
                             if (chosen < 0) return;
                             if (odd_ == OddWords::kKept && chosen == IndexOf(values, block.*word, otherwise)) return;
                             block.*word = values[static_cast<std::size_t>(chosen)];
                         }});
    }
    // On: 1, off: 0; any value but 0 shows as on.
    void CheckBox(Word word, int checkId) {
        rows_.push_back({[=, this](const Block& block) { dialog_.Item<Button>(checkId).SetCheck(block.*word != 0); },
                         [=, this](Block& block) { block.*word = dialog_.Item<Button>(checkId).IsChecked() ? 1 : 0; }});
    }
    // A drop-down list with an entry a value, each shown as its number. The first shows any other value.
    void Numbers(Word word, int comboId, std::vector<std::int32_t> values) {
        rows_.push_back({[=, this](const Block& block) {
                             const auto combo = dialog_.Item<ComboBox>(comboId);
                             for (const std::int32_t value : values) combo.AddString(std::to_string(value));
                             combo.SetCurSel(IndexOf(values, block.*word, 0));
                         },
                         [=, this](Block& block) {
                             const int chosen = dialog_.Item<ComboBox>(comboId).GetCurSel();
                             if (chosen >= 0) block.*word = values[static_cast<std::size_t>(chosen)];
                         }});
    }
    // A drop-down list whose entries are the values from 0 on. Any other value shows none, and stays until one is
    // chosen.
    void Entries(Word word, int comboId, std::vector<const char*> texts) {
        rows_.push_back({[=, this](const Block& block) {
                             const auto combo = dialog_.Item<ComboBox>(comboId);
                             for (const char* text : texts) combo.AddString(text);
                             combo.SetCurSel(block.*word);
                         },
                         [=, this](Block& block) {
                             const int chosen = dialog_.Item<ComboBox>(comboId).GetCurSel();
                             if (chosen >= 0) block.*word = chosen;
                         }});
    }

    // An edit with an integer from low to high, in half-width characters. message: for any other text.
    void Number(Word word, int editId, std::int32_t low, std::int32_t high, const char* message) {
        rows_.push_back(
            {[=, this](const Block& block) { dialog_.Item<Edit>(editId).SetText(std::to_string(block.*word)); },
             [=, this](Block& block) { block.*word = ReadInteger(TextOf(editId)).value_or(0); }});
        numbers_.push_back({{editId, message}, low, high});
    }

    // The first edit, in the order in which they were stated, whose text is no such number. To be asked before Read.
    struct Fault {
        int editId;
        const char* message;
    };
    std::optional<Fault> FirstFault(KrUtility& utility) const {
        for (const NumberRow& number : numbers_) {
            if (!utility.CheckNumber(TextOf(number.fault.editId).c_str(), kKrInteger, number.low, number.high))
                return number.fault;
        }
        return std::nullopt;
    }

    void Show(const Block& block) const {  // when the dialog is initialised
        for (const Row& row : rows_) row.show(block);
    }
    void Read(Block& block) const {  // sets the words that have a row, and no others
        for (const Row& row : rows_) row.read(block);
    }

  private:
    struct Row {
        std::function<void(const Block&)> show;
        std::function<void(Block&)> read;
    };
    struct NumberRow {
        Fault fault;
        std::int32_t low;
        std::int32_t high;
    };
    std::string TextOf(int editId) const { return dialog_.Item<Edit>(editId).Text().value_or(std::string()); }
    static int IndexOf(const std::vector<std::int32_t>& values, std::int32_t value, int otherwise) {
        const auto found = std::find(values.begin(), values.end(), value);
        return found == values.end() ? otherwise : static_cast<int>(found - values.begin());
    }

    Dialog& dialog_;
    OddWords odd_;
    std::vector<Row> rows_;
    std::vector<NumberRow> numbers_;
};

// "設定を保存する": hands the words to the host and has it keep them as its defaults. When that fails the host has the
// words before again, the user is told, and the result is false: the dialog stays open, so that its mark can be taken
// off.
template <class Block>
bool KeepAsDefault(HWND owner, const char* caption, const Block& words, const Block& before, void (*hand)(const Block*),
                   int (*keep)()) {
    hand(&words);
    if (keep() == 0) return true;
    hand(&before);
    Tell(owner, "設定を保存できません。", caption);
    return false;
}

}  // namespace kiro::ui
