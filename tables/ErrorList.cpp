#include "tables/ErrorList.h"

#include "text/SlotText.h"

namespace {

constexpr std::size_t kErrorsKept = 5;
constexpr std::size_t kLongestError = 100;

// In the list a message stands out between asterisks, and blanks set it off from an example.
std::string Plain(std::string_view message) {
    std::string plain;
    for (const char c : CutAtCharacter(message, kLongestError)) {
        if (c == '*' || c == '\n' || (c == ' ' && (plain.empty() || plain.back() == ' '))) continue;
        plain += c;
    }
    if (plain.ends_with(' ')) plain.pop_back();
    return plain;
}

}  // namespace

void ErrorList::OpenErrorList(const SystemPath& path) {
    file_ = path.empty() ? nullptr : OpenFile(path, "w");
    whole_ = file_ != nullptr;
    line_ = errors_ = 0;
    firstErrors_.clear();
}

void ErrorList::PrintErrorList(std::string_view text) {
    if (!file_) return;
    whole_ &= std::fwrite(text.data(), 1, text.size(), file_.get()) == text.size();
    whole_ &= std::fflush(file_.get()) == 0;
}

void ErrorList::CloseErrorList() {
    if (file_) whole_ &= std::fclose(file_.release()) == 0;
}

void ErrorList::OnError(std::string_view message) {
    if (errors_++ < kErrorsKept)
        firstErrors_ += Formatted("%d 行目：%s\n", static_cast<std::int32_t>(line_), std::string_view(Plain(message)));
}

std::string ErrorList::FirstErrors() const {
    if (errors_ <= kErrorsKept) return firstErrors_;
    return firstErrors_ + Formatted("ほか %d 件\n", static_cast<std::int32_t>(errors_ - kErrorsKept));
}
