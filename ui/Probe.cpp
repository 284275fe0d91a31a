#include "ui/Probe.h"

#include <algorithm>
#include <utility>

#include "ui/QuietDrives.h"
#include "ui/WaitCursor.h"

namespace kiro::ui {

// What a probe and its thread share.
struct Asked {
    std::wstring place;
    ULONGLONG deadline = 0;
    std::optional<bool> answer;
    Asked* next = nullptr;  // of those that have no answer yet
};

namespace {

// Without destructors: threads of a library that is being freed, or of a program that ends, may still use them.
SRWLOCK lock = SRWLOCK_INIT;
CONDITION_VARIABLE answered = CONDITION_VARIABLE_INIT;
Asked* waiting = nullptr;  // the first one

class Locked {
  public:
    Locked() { AcquireSRWLockExclusive(&lock); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { ReleaseSRWLockExclusive(&lock); }
};

struct Task {
    std::function<bool()> question;
    std::shared_ptr<Asked> asked;
    HMODULE library;  // which has the code
};

bool IsShare(const std::wstring& path) { return path.starts_with(L"\\\\"); }

// "C:", or "\\SERVER\SHARE"; "" when there is none.
std::wstring PlaceOf(const std::wstring& path) {
    std::wstring place = path.substr(0, path.find(L'\\'));
    if (IsShare(path)) {
        const std::size_t server = std::min(path.find(L'\\', 2), path.size());
        place = path.substr(0, path.find(L'\\', server + 1));
    }
    CharUpperBuffW(place.data(), static_cast<DWORD>(place.size()));
    return place;
}

bool IsSilent(const std::wstring& place) {
    const Locked locked;
    const Asked* asked = waiting;
    while (asked && (asked->place != place || GetTickCount64() < asked->deadline)) asked = asked->next;
    return asked != nullptr;
}

void SetAnswer(Asked& asked, bool answer) {
    const Locked locked;
    Asked** link = &waiting;
    while (*link != &asked) link = &(*link)->next;
    *link = asked.next;
    asked.answer = answer;
    WakeAllConditionVariable(&answered);
}

bool AnswerTo(const std::function<bool()>& question) {
    const QuietDrives quiet;
    try {
        return question();
    } catch (...) {
        return false;
    }
}

DWORD WINAPI Ask(void* parameter) {
    HMODULE library = nullptr;
    {
        const std::unique_ptr<Task> task(static_cast<Task*>(parameter));
        library = task->library;
        SetAnswer(*task->asked, AnswerTo(task->question));
    }
    FreeLibraryAndExitThread(library, 0);
}

HMODULE KeepLibrary() {
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<const wchar_t*>(Ask), &library);
    return library;
}

void Start(std::unique_ptr<Task> task) {
    Asked& asked = *task->asked;
    task->library = KeepLibrary();
    {
        const Locked locked;
        asked.next = std::exchange(waiting, &asked);
    }
    const HANDLE thread = CreateThread(nullptr, 0, Ask, task.get(), 0, nullptr);
    if (thread) {
        task.release();
        CloseHandle(thread);
    } else {
        SetAnswer(asked, false);  // who asks once more waits himself
        FreeLibrary(task->library);
    }
}

}  // namespace

bool MayBeSilent(const std::wstring& path, UINT driveType) {
    return IsShare(path) || driveType == DRIVE_REMOTE || IsSilent(PlaceOf(path));
}

bool MayBeSilent(const std::wstring& path) {
    return MayBeSilent(path, IsShare(path) ? DRIVE_REMOTE : GetDriveTypeW((PlaceOf(path) + L'\\').c_str()));
}

Probe::Probe(const std::wstring& path, std::function<bool()> question, DWORD patience) {
    std::wstring place = PlaceOf(path);
    if (IsSilent(place)) return;
    asked_ = std::make_shared<Asked>(std::move(place), GetTickCount64() + patience);
    Start(std::make_unique<Task>(std::move(question), asked_));
}

std::optional<bool> Probe::Answer() const {
    if (!asked_) return std::nullopt;
    const Locked locked;
    while (!asked_->answer) {
        const ULONGLONG now = GetTickCount64();
        if (now >= asked_->deadline) break;
        SleepConditionVariableSRW(&answered, &lock, static_cast<DWORD>(asked_->deadline - now), 0);
    }
    return asked_->answer;
}

bool IsAnswering(const std::wstring& path) {
    if (!MayBeSilent(path)) return true;
    const WaitCursor cursor;
    const Probe probe(path, [path] { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; });
    return probe.Answer().has_value();
}

}  // namespace kiro::ui
