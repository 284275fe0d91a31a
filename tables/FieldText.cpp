#include "tables/FieldText.h"

#include <algorithm>
#include <cassert>

#include "text/SlotText.h"

FieldText::FieldText(std::string_view part, std::size_t count, std::string_view suffix) : part_(part) {
    assert(part.size() <= TableLines::kLargestPiece && suffix.size() <= kLongestSuffix);
    part = CutAtCharacter(part, count);
    wasCut_ = part_.find_first_not_of(" \r\n", part.size()) != std::string_view::npos;
    // None of these can be the second byte of a character.
    char* end =
        std::copy_if(part.begin(), part.end(), text_, [](char c) { return c != ' ' && c != '\r' && c != '\n'; });
    end = std::copy(suffix.begin(), suffix.end(), end);
    rest_ = {text_, static_cast<std::size_t>(end - text_)};
}
