// The names that drawings use and conversion tables assign: of layers, line types, text styles and the blocks of arrow
// heads, each with how often it is used. A drawing is read once from its start to its end; what is kept of it are
// names.
//
// What counts as a use:
// - of a layer: every item in the drawing and in its blocks that is on it;
// - of a line type: every item that names it, or names none or BYLAYER and is on a layer that has it (BYBLOCK is none:
//   the line type is that of the block's insertions, which count);
// - of a text style: every item with text that names it, and for STANDARD those that need not name it;
// - of an arrow head: every dimension and leader whose dimension style has it, or that has it in the style's place. The
//   standard arrow head is no block and has no name.
// Vertices are parts of their polylines and not counted; what only stands in the tables of a drawing is not used.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "drawing/ByteSource.h"
#include "drawing/Results.h"

namespace drawing {

enum class NameKind { kLayer, kLineType, kTextStyle, kArrow };
inline constexpr std::size_t kNameKinds = 4;

struct UsedName {
    std::string name;  // code page 932, as it came first; names that differ only in the case of ASCII letters are one
    std::size_t count;
};

// From the character sets of drawings to code page 932, whose tables are the system's. What it lacks is to become
// "\U+XXXX", as programs write it that save drawings in an older form.
struct NameConversion {
    std::string (*ofUtf8)(std::string_view text);
    // Drawings before 2007. Null: they are in the code page that they name, which is 932 for those that name none.
    std::string (*ofOlder)(std::string_view text) = nullptr;
};

class UsedNames {
  public:
    // Adds those of a drawing, text or binary; nothing of one that cannot be read to its end. A source that wants to
    // stop the reading, because the user does, fails.
    Result Add(ByteSource& source, const NameConversion& conversion);
    void Add(NameKind kind, std::string_view name, std::size_t count);

    std::vector<UsedName> SortedByUse(NameKind kind) const;  // the most used first, those used as much by name

  private:
    struct Names {
        std::vector<UsedName> list;
        std::unordered_map<std::string, std::size_t> rows;
    };
    Names names_[kNameKinds];
};

// A name as the line of a table file can hold it, without blanks; and folded, as tables are searched for it.
std::string NameInTable(std::string_view name);
std::string KeyInTable(std::string_view name);

}  // namespace drawing
