#include <algorithm>

#include "hostlayer/include/KiroHost.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/HomeFolder.h"
#include "hostlayer/kirobc/PathText.h"

namespace {

std::size_t Store(std::wstring_view text, wchar_t* out, std::size_t size) {
    if (!out || size == 0) return text.size();
    std::size_t length = std::min(text.size(), size - 1);
    const bool insidePair = length > 0 && length < text.size() && (text[length - 1] & 0xFC00) == 0xD800;
    if (insidePair) --length;
    text.copy(out, length);
    out[length] = L'\0';
    return text.size();
}

// The full path with "/" in code page 932; "" when it cannot be formed.
std::string FullPath(std::string_view key, std::string_view name, bool upperCase, bool create) {
    std::wstring fileName = kirobc::WideFromEuc(name);
    if (!kirobc::IsFileName(fileName)) return {};
    const std::optional<std::wstring> folder = kirobc::FolderOfKey(key, create);
    if (!folder) return {};
    if (upperCase) {
        // ASCII only: which other letters are the same file differs from volume to volume.
        std::ranges::transform(fileName, fileName.begin(), [](wchar_t c) {
            return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
        });
    }
    std::wstring path = kirobc::JoinPath(*folder, fileName);
    std::ranges::replace(path, L'\\', L'/');
    return kirobc::SjisFromWide(path);
}

}  // namespace

void KiroHostSetHome(const wchar_t* folder) {
    kirobc::Guarded(0, [folder] { return kirobc::SetHomeFolder(folder), 0; });
}

std::size_t KiroHostGetFolder(const char* key, wchar_t* out, std::size_t size) {
    if (out && size > 0) *out = L'\0';
    return kirobc::Guarded(std::size_t{0}, [=] {
        const std::optional<std::wstring> folder = key ? kirobc::FolderOfKey(key, true) : std::nullopt;
        return folder ? Store(*folder, out, size) : 0;
    });
}

std::size_t HxFileToFullPath(const char* key, const char* name, bool upperCase, bool create, char* out,
                             std::size_t size) {
    if (out && size > 0) *out = '\0';
    return kirobc::Guarded(std::size_t{0}, [=] {
        const std::string path = key && name ? FullPath(key, name, upperCase, create) : std::string();
        return HxSjisToEuc(path.data(), path.size(), out, size);
    });
}
