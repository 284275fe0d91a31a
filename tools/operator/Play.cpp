#include "Play.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <stop_token>
#include <thread>
#include <vector>

#include "Player.h"
#include "catalogue/DemoHome.h"
#include "driver/Driver.h"
#include "driver/Leaks.h"
#include "driver/State.h"
#include "entry/host/kirogr.h"

namespace kiro {
namespace {

using namespace drive;

constexpr int kHangSeconds = 40;  // without an event

// Ends the program when the play does not go on, and says where it stands.
class Watchdog {
  public:
    explicit Watchdog(PlayLog& log)
        : log_(log), uiThread_(GetCurrentThreadId()), thread_([this](std::stop_token stop) { Watch(stop); }) {}

  private:
    void Watch(std::stop_token stop) {
        SetThreadDesktop(PrivateDesktop());
        int seen = -1;
        for (int seconds = 0; seconds < kHangSeconds; ++seconds) {
            for (int i = 0; i < 20; ++i) {
                Sleep(50);
                if (stop.stop_requested()) return;
            }
            if (seen != log_.Lines()) seconds = 0;
            seen = log_.Lines();
        }
        log_.Write("HANGS: no event for " + std::to_string(kHangSeconds) + " seconds\n" + StateOf(uiThread_));
        std::fputs("the play hangs; its log says where\n", stdout);
        std::fflush(stdout);
        TerminateProcess(GetCurrentProcess(), kPlayHangs);
    }

    PlayLog& log_;
    DWORD uiThread_;
    std::jthread thread_;
};

std::vector<std::byte> CopyOf(std::span<const std::byte> bytes) { return {bytes.begin(), bytes.end()}; }

std::string FileBytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool HeapsAreWhole() {
    std::vector<HANDLE> heaps(64);
    heaps.resize(std::min<std::size_t>(GetProcessHeaps(64, heaps.data()), 64));
    for (const HANDLE heap : heaps)
        if (!HeapValidate(heap, 0, nullptr)) return false;
    return true;
}

// One play: as many openings as the events last for.
class OnePlay {
  public:
    OnePlay(const PlayOrder& order, unsigned seed, const std::filesystem::path& log)
        : order_(order), log_(log), player_(seed, order.events, log_) {}

    // What went wrong; empty when nothing did.
    std::string Run() {
        MakeDemoHome(order_.home);
        const Watchdog watchdog(log_);
        std::string fault;
        try {
            while (fault.empty() && player_.HasEvents()) fault = OpenOnce();
        } catch (const std::exception& error) {
            fault = error.what();
        }
        if (!fault.empty()) log_.Write("FAULT: " + fault);
        return fault;
    }
    void Note(const std::string& line) { log_.Write(line); }

  private:
    std::string OpenOnce() {
        log_.Write("opens " + std::string(order_.dialog->name));
        const Opening opening = order_.dialog->prepare();
        std::vector<std::vector<std::byte>> before;
        for (const auto& part : opening.kept) before.push_back(CopyOf(part));
        const auto table = order_.home / L"DXF" / L"TABLE" / (order_.dialog->ownTable ? order_.dialog->ownTable : L"-");
        const std::string tableBefore = FileBytes(table);
        const INT_PTR result = Drive(opening.run, [&] { player_.Play(); });
        if (result != IDOK && result != IDCANCEL) return "ends with " + std::to_string(result);
        for (std::size_t i = 0; result == IDCANCEL && i < before.size(); ++i)
            if (before[i] != CopyOf(opening.kept[i])) return "what nobody confirmed was written";
        if (result == IDCANCEL && FileBytes(table) != tableBefore) return "a table that nobody confirmed was written";
        if (!IsWindowEnabled(Grgetwin(-1))) return "the main window stays disabled";
        if (!HeapsAreWhole()) return "the heap is damaged";
        return {};
    }

    const PlayOrder& order_;
    PlayLog log_;
    Player player_;
};

std::string MoreThan(const Holdings& before, const Holdings& after) {
    std::string text;
    const auto add = [&](int more, const char* what) {
        if (more > 0) text += (text.empty() ? "" : ", ") + std::to_string(more) + " " + what;
    };
    add(after.windows - before.windows, "windows");
    add(after.pens - before.pens, "pens");
    add(after.brushes - before.brushes, "brushes");
    add(after.fonts - before.fonts, "fonts");
    // Not bitmaps: a static that shows one of its template may leave it to the end of the program. The figures of the
    // dialogs compare them with those of the bare template.
    return text;
}

// What a play leaves behind may be the system's, kept for the next time: only what the same play leaves again is ours.
std::string PlayAndCount(const PlayOrder& order, unsigned seed, const std::filesystem::path& log) {
    std::string more;
    for (int turn = 0; turn < 3; ++turn) {
        const Holdings before = CountHoldings();
        OnePlay play(order, seed, log);
        if (const std::string fault = play.Run(); !fault.empty()) return fault;
        more = MoreThan(before, CountHoldings());
        if (more.empty()) return {};
        play.Note("stays behind: " + more);
    }
    return "stays behind: " + more;
}

}  // namespace

int Play(const PlayOrder& order) {
    std::filesystem::create_directories(order.logs);
    int faults = 0;
    for (int i = 0; i < order.plays; ++i) {
        const unsigned seed = order.seed + static_cast<unsigned>(i);
        const auto log = order.logs / (std::string(order.dialog->name) + "-" + std::to_string(seed) + ".log");
        const std::string fault = PlayAndCount(order, seed, log);
        std::printf("%s, seed %u, %d events: %s\n", order.dialog->name, seed, order.events,
                    fault.empty() ? "ok" : fault.c_str());
        std::fflush(stdout);
        faults += !fault.empty();
    }
    return faults;
}

}  // namespace kiro
