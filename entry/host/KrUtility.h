// kirodlglib: the utility object that every dialog holds, one each. Text is Shift-JIS unless said otherwise.
//
// Two families report differently. CheckFile, CheckInputFile and CheckOutputFile tell the user themselves what is
// wrong, in a message box with SetCaption's caption over SetParentWindow's window; the caller only moves the focus.
// CheckFileName, CheckNumber, CheckScale and CheckModelName are silent; the caller has the words.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "HostApi.h"

#if defined(KIRODLGLIB_BUILD)
#define KIRODLGLIB_API KIRO_HOST_EXPORT
#else
#define KIRODLGLIB_API KIRO_HOST_IMPORT
#endif

// A list of texts as the host sees it. Indices run from 0 to GetCount() - 1; others are ignored (GetAt gives "").
class KrStringList {
  public:
    virtual int GetCount() const = 0;
    virtual const char* GetAt(int index) const = 0;  // valid until the list is changed
    virtual void InsertAt(int index, const char* text) = 0;
    virtual void RemoveAt(int index) = 0;
    virtual void RemoveAll() = 0;

  protected:
    ~KrStringList() = default;
};

constexpr int kKrTextSize = 260;      // room for DisplayScale and DtoA
constexpr int kKrPathSize = 1024;     // room for every path this library handles, in any of its encodings
constexpr int kKrUsedFiles = 1;       // the kind of list that GetUsedFile and SetUsedFile keep: file names
constexpr int kKrChooseExisting = 0;  // FileDialog: a file to open; a name can be typed that no file has
constexpr int kKrChooseNew = 1;       // FileDialog: a file that may not exist yet
constexpr int kKrIntegerSigned = -1;  // CheckNumber: an integer, with or without a sign
constexpr int kKrInteger = 0;         // CheckNumber: an integer; negative where the range allows it
constexpr int kKrReal = 1;            // CheckNumber: a decimal number, with or without fraction and exponent

class KrUtility {
  public:
    virtual void Release() = 0;  // ends the object; its windows are those of the dialog and end with it

    // The dialog: owner of the utility's message boxes and choosers. First call of every initialisation.
    virtual void SetParentWindow(KrWindow dialog) = 0;
    // Adds the guidance line, a strip at the lower edge of the dialog, which grows by its height.
    virtual void SetMessageZone() = 0;
    virtual void MessageText(const char* text) = 0;  // guidance; "" clears the line
    virtual void ErrorText(const char* text) = 0;    // the same, marked as an error
    virtual void SetCaption(const char* caption) = 0;

    // The file type that the file operations below work on, such as "#DXF#". Each key is a folder under the host's home
    // folder ("#DXF:TABLE#" is DXF\TABLE; "" is the home folder itself), made when it is first used.
    virtual void SetKeyword(const char* key) = 0;
    virtual void SetFloppy(const char* key) = 0;       // the same file type on the floppy medium
    virtual void SetComment(const char* comment) = 0;  // what the chooser calls such files
    // What the chooser lists; a name or path starts it there, with that name in its name field. For kKrChooseNew a
    // pattern whose only wildcard is one "*" at its end proposes what new names begin with: "TABLE*" puts "TABLE" in
    // the name field, selected, and lists "TABLE*". Other patterns propose nothing.
    virtual void SetWildcard(const char* pattern) = 0;

    // The system's file chooser, in a mode of those above. Not 0 when a file was chosen; GetFileName is then its full
    // path, at most kKrPathSize - 1 bytes, valid until the next FileDialog.
    virtual int FileDialog(int mode) = 0;
    virtual const char* GetFileName() = 0;

    // A name without a folder means a file in the current key's folder.
    virtual int CheckFile(const char* name) = 0;        // acceptable as a name or as a pattern with "*" and "?"
    virtual int CheckInputFile(const char* name) = 0;   // an existing file, not a folder, not empty, readable now
    virtual int CheckOutputFile(const char* name) = 0;  // writable; asks before an existing file is overwritten
    virtual int CheckFileName(const char* name) = 0;    // valid as a file name, without pattern characters

    // Not 0 when the whole text is one number of the kind, in half-width characters, from min to max inclusive.
    virtual int CheckNumber(const char* text, int kind, double min, double max) = 0;
    // A positive number, or 1/n with a positive n. *value is written on success only.
    virtual int CheckScale(const char* text, double* value) = 0;
    // The same notation: 1/n for a scale below 1 that is one over a whole number, otherwise the number.
    virtual void DisplayScale(double scale, char* out, int size) = 0;
    virtual const char* DtoA(double value) = 0;  // shortest decimal form; valid until the next call
    // Not 0 when the host's model names may hold every character of the text. The empty text passes.
    virtual int CheckModelName(const char* name) = 0;

    virtual void SpaceNull(char* text) = 0;    // cuts trailing spaces, half and full width
    virtual void ExceptSpace(char* text) = 0;  // cuts leading and trailing spaces; those inside a name are part of it
    virtual void KillFocus(
        char* text) = 0;  // what an edit's text becomes when it loses the focus: spaces around it cut

    virtual int ToEUC(char* text, int size) = 0;  // Shift-JIS to EUC, in place; 0 when it had to be cut to the size
    virtual void ToSJIS(char* text) = 0;          // EUC to Shift-JIS, in place; never longer than before
    virtual void EucToSjis(char* out, const char* in, int size) = 0;
    virtual void SjisToEuc(char* out, const char* in, int size) = 0;

    // Both work in place in a buffer of the given size; key null means the current key. 0 when the result has no room
    // or the path cannot be formed; the text is then as it was.
    //
    // Internal form: the absolute path with "/" between folders, EUC. Real form: the absolute path with "\", Shift-JIS.
    // InternalPathName takes a real path or a name (Shift-JIS), RealPathName an internal path or a name (EUC); a name
    // means a file in the key's folder. They are exact inverses on absolute paths.
    virtual int InternalPathName(const char* key, char* path, int size) = 0;
    virtual int RealPathName(const char* key, char* path, int size) = 0;
    // 0 when the file or folder exists. A name without a folder is looked for in the key's folder (null: current key).
    virtual int Access(const char* key, const char* path) = 0;

    // The recently used files of a key, newest first, kept across runs. GetUsedFile replaces the list's contents and
    // the combo's (null: none) and sets *max to the largest number kept. SetUsedFile keeps the first *max of the list
    // (0: none). Both: 0 when the list could not be read or written; a damaged file counts as an empty list.
    virtual int GetUsedFile(const char* key, int kind, KrStringList* list, int* max, KrWindow combo) = 0;
    virtual int SetUsedFile(const char* key, int kind, const KrStringList* list, const int* max) = 0;
    // Moves the name to the top (adds it there, cutting the list to max) or removes it, in the list and the combo.
    // Names are the same when they differ only in letter case.
    virtual void SetFilePath(KrStringList* list, const char* name, KrWindow combo, int max) = 0;
    virtual void DelFilePath(KrStringList* list, const char* name, KrWindow combo, int max) = 0;

    virtual int GetMessageText(int number, char* out, int size) = 0;  // a host message; 0 and "" for an unknown number
    virtual int GetFilnameUL(const char* key) = 0;  // not 0 when files of the key are named in upper case
    virtual void SetFocus(int controlId) = 0;       // a control of the parent dialog; an edit's text is selected

  protected:
    ~KrUtility() = default;
};

// A new utility object, or null when there is no memory.
KIRODLGLIB_API KrUtility* KrCreateUtility();

// ---- Conveniences on this side of the boundary ----

struct KrUtilityRelease {
    void operator()(KrUtility* utility) const { utility->Release(); }
};
using KrUtilityPtr = std::unique_ptr<KrUtility, KrUtilityRelease>;

class KrTextList final : public KrStringList {
  public:
    int GetCount() const override { return static_cast<int>(texts_.size()); }
    const char* GetAt(int index) const override { return Has(index) ? texts_[Slot(index)].c_str() : ""; }
    // The host calls this: without memory the text is left out, for nothing may be thrown through the host.
    void InsertAt(int index, const char* text) noexcept override {
        try {
            if (index == GetCount() || Has(index)) texts_.insert(texts_.begin() + index, text);
        } catch (...) {
        }
    }
    void RemoveAt(int index) override {
        if (Has(index)) texts_.erase(texts_.begin() + index);
    }
    void RemoveAll() override { texts_.clear(); }

  private:
    bool Has(int index) const { return index >= 0 && index < GetCount(); }
    static std::size_t Slot(int index) { return static_cast<std::size_t>(index); }
    std::vector<std::string> texts_;
};

// The in-place operations on a std::string.
inline std::string KrEdited(KrUtility& utility, std::string text, void (KrUtility::*edit)(char*)) {
    (utility.*edit)(text.data());
    text.resize(std::char_traits<char>::length(text.c_str()));
    return text;
}
// A name or real path (Shift-JIS) in internal form; "" when it cannot be formed.
inline std::string KrInternalPath(KrUtility& utility, const char* key, const std::string& path) {
    char buffer[kKrPathSize];
    if (path.size() >= sizeof buffer) return {};
    path.copy(buffer, path.size());
    buffer[path.size()] = 0;
    return utility.InternalPathName(key, buffer, kKrPathSize) ? std::string(buffer) : std::string();
}
