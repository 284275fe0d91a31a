// What the built files tell of themselves in their properties.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr wchar_t kVersion[] = L"" KIRO_VERSION;

class VersionInfo : public testing::TestWithParam<const wchar_t*> {
  protected:
    void SetUp() override {
        wchar_t path[MAX_PATH];
        const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
        const std::wstring program(path, length);
        file_ = program.substr(0, program.rfind(L'\\') + 1) + GetParam();
        data_.resize(GetFileVersionInfoSizeW(file_.c_str(), nullptr));
        ASSERT_FALSE(data_.empty());
        ASSERT_TRUE(GetFileVersionInfoW(file_.c_str(), 0, static_cast<DWORD>(data_.size()), data_.data()));
    }
    // A Japanese text, in UTF-16; "" when there is none of that name.
    std::wstring Text(const wchar_t* name) {
        void* text = nullptr;
        UINT length = 0;
        const std::wstring path = std::wstring(L"\\StringFileInfo\\041104B0\\") + name;
        return VerQueryValueW(data_.data(), path.c_str(), &text, &length) ? static_cast<wchar_t*>(text) : L"";
    }
    template <class T>
    const T& Value(const wchar_t* path) {
        static const T none{};
        void* value = nullptr;
        UINT length = 0;
        return VerQueryValueW(data_.data(), path, &value, &length) && length >= sizeof(T) ? *static_cast<T*>(value)
                                                                                          : none;
    }

    std::wstring file_;
    std::vector<std::byte> data_;
};

struct Translation {
    WORD language;
    WORD codePage;
};

bool Has(const std::wstring& text, const wchar_t* part) { return text.find(part) != std::wstring::npos; }

TEST_P(VersionInfo, IsTheProjectsOwn) {
    const auto& fixed = Value<VS_FIXEDFILEINFO>(L"\\");
    unsigned major = 0, minor = 0, patch = 0;
    ASSERT_EQ(3, std::swscanf(kVersion, L"%u.%u.%u", &major, &minor, &patch));
    EXPECT_EQ(MAKELONG(minor, major), static_cast<LONG>(fixed.dwFileVersionMS));
    EXPECT_EQ(MAKELONG(0, patch), static_cast<LONG>(fixed.dwFileVersionLS));
    EXPECT_EQ(fixed.dwFileVersionMS, fixed.dwProductVersionMS);
    EXPECT_EQ(fixed.dwFileVersionLS, fixed.dwProductVersionLS);
    EXPECT_EQ(static_cast<DWORD>(file_.ends_with(L".exe") ? VFT_APP : VFT_DLL), fixed.dwFileType);
    EXPECT_EQ(kVersion, Text(L"FileVersion"));
    EXPECT_EQ(kVersion, Text(L"ProductVersion"));
    EXPECT_EQ(L"kirovanteo", Text(L"ProductName"));
    EXPECT_EQ(GetParam(), Text(L"OriginalFilename"));
    const auto& translation = Value<Translation>(L"\\VarFileInfo\\Translation");
    EXPECT_EQ(MAKELANGID(LANG_JAPANESE, SUBLANG_JAPANESE_JAPAN), translation.language);
    EXPECT_EQ(1200, translation.codePage);
    // Whole words of Japanese, as a wrong encoding would not give them.
    const std::wstring description = Text(L"FileDescription");
    EXPECT_TRUE(Has(description, L"データ変換") || Has(description, L"単体ホスト") ||
                Has(description, L"変換テーブル"));
}

INSTANTIATE_TEST_SUITE_P(Files, VersionInfo, testing::Values(KIRO_FILES));

}  // namespace
