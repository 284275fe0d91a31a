// The user of a random play.
#pragma once

#include <windows.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace kiro {

// What was done, line by line, as far as it came even when the program ends at once.
class PlayLog {
  public:
    explicit PlayLog(const std::filesystem::path& file) : out_(file, std::ios::binary) {}
    void Write(const std::string& line) {
        out_ << line << "\n" << std::flush;
        ++lines_;
    }
    int Lines() const { return lines_; }  // a play that goes on writes on

  private:
    std::ofstream out_;
    std::atomic<int> lines_{0};
};

class Player {
  public:
    Player(unsigned seed, int events, PlayLog& log) : random_(seed), left_(events), log_(log) {}

    // The user function of one opening: plays until the dialog is closed or no event is left, and then closes all.
    void Play();
    bool HasEvents() const { return left_ > 0; }

  private:
    enum class Place { kReturned, kMenu, kMoving, kBox, kChooser, kDialog };
    struct Action {
        int weight;
        void (Player::*act)(HWND dialog);
    };
    static const Action kActions[];

    Place Look(HWND& dialog);
    void Step(Place place, HWND dialog);
    void Log(const std::string& what, HWND window = nullptr);

    // By place.
    void InMenu();
    void InMove();
    void InBox(HWND box);
    void InChooser(HWND chooser);

    // In a dialog of the library.
    void ClickControl(HWND dialog);
    void PostKeys(HWND dialog);
    void PressKeys(HWND dialog);
    void TypeText(HWND dialog);
    void SetText(HWND dialog);
    void UseMouse(HWND dialog);
    void UseList(HWND dialog);
    void UseClipboard(HWND dialog);
    void MoveFocus(HWND dialog);
    void GoElsewhere(HWND dialog);
    void CloseDialog(HWND dialog);
    void Disturb(HWND dialog);

    int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    bool Chance(int percent) { return Pick(100) < percent; }
    template <std::size_t N, class T>
    const T& PickOf(const T (&choices)[N]) {
        return choices[Pick(static_cast<int>(N))];
    }
    std::wstring PickText();
    HWND PickChild(HWND dialog);
    POINT PickPoint(HWND dialog);

    std::mt19937 random_;
    int left_;
    int done_ = 0;
    PlayLog& log_;
    HWND other_ = nullptr;  // a window of another program, as far as the dialogs can tell
};

}  // namespace kiro
