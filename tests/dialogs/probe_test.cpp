// Questions to places that answer at once, late or not at all.
#include "ui/Probe.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/dialogs/SilentPlace.h"

using kiro::ui::Probe;

namespace {

constexpr wchar_t kShare[] = L"\\\\kiro\\share\\folder\\a", kSameShare[] = L"\\\\KIRO\\Share",
                  kOther[] = L"\\\\kiro\\b";
constexpr DWORD kLong = 10000;  // milliseconds

}  // namespace

TEST(Probes, GiveTheAnswer) {
    EXPECT_TRUE(kiro::ui::MayBeSilent(kShare));
    EXPECT_FALSE(kiro::ui::MayBeSilent(L"C:\\folder"));
    const auto isQuiet = [] { return (GetThreadErrorMode() & SEM_FAILCRITICALERRORS) != 0; };
    const auto window = GetCurrentThreadId();
    const Probe quiet(kShare, isQuiet, kLong),
        here(
            kShare, [=] { return GetCurrentThreadId() == window; }, kLong),
        thrown(
            kOther, []() -> bool { throw std::runtime_error(""); }, kLong);
    EXPECT_EQ(std::optional(true), quiet.Answer());
    EXPECT_EQ(std::optional(false), here.Answer());
    EXPECT_EQ(std::optional(false), thrown.Answer());
}

TEST(Probes, AreNotWaitedForLong) {
    const SilentPlace silent(kShare);
    bool asked = false;
    const auto ask = [&] { return asked = true; };
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(std::nullopt, Probe(kSameShare, ask, kLong).Answer());  // an earlier one is waiting
    EXPECT_FALSE(kiro::ui::IsAnswering(kSameShare));
    EXPECT_FALSE(asked);
    EXPECT_EQ(std::optional(true), Probe(kOther, ask, kLong).Answer());
    const SilentPlace late(L"Q:\\", 50);
    EXPECT_EQ(std::nullopt, late.probe.Answer());
    EXPECT_LT(GetTickCount64() - start, kLong);
    EXPECT_TRUE(kiro::ui::MayBeSilent(L"q:\\folder"));
    late.Answer();
    EXPECT_EQ(std::optional(true), late.probe.Answer());
    EXPECT_FALSE(kiro::ui::MayBeSilent(L"Q:\\"));
    silent.Answer();
    EXPECT_EQ(std::optional(true), Probe(kShare, ask, kLong).Answer());
}
