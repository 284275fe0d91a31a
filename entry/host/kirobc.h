// kirobc: basic services and the record functions of the database commands.
#pragma once

#if defined(__cplusplus)
#include <memory>
#include <string>
#endif

#include "HostApi.h"
#include "ParamBlocks.h"
#include "TARNAINFO.h"

#if defined(KIROBC_BUILD)
#define KIROBC_API KIRO_HOST_EXPORT
#else
#define KIROBC_API KIRO_HOST_IMPORT
#endif

// ---- Text ----

// Converts length bytes and writes at most size - 1 bytes and a NUL, cut at a character's end. Returns the number of
// bytes that the whole result has, without the NUL (so a result >= size says that it was cut); out may be null with
// size 0. Bytes that are no character of the source encoding become "?".
KIROBC_API size_t HxEucToSjis(const char* text, size_t length, char* out, size_t size);
KIROBC_API size_t HxSjisToEuc(const char* text, size_t length, char* out, size_t size);

#if defined(__cplusplus)
class HxEucEncoder {
  public:
    // At most limit bytes of result, cut at a character's end.
    static std::string Euc2Sjis(const std::string& text, std::size_t limit = std::string::npos) {
        return Convert(HxEucToSjis, text, limit);
    }
    static std::string Sjis2Euc(const std::string& text, std::size_t limit = std::string::npos) {
        return Convert(HxSjisToEuc, text, limit);
    }

  private:
    static std::string Convert(std::size_t (*convert)(const char*, std::size_t, char*, std::size_t),
                               const std::string& text, std::size_t limit) {
        const std::size_t whole = convert(text.data(), text.size(), nullptr, 0);
        std::string out(whole < limit ? whole : limit, '\0');
        convert(text.data(), text.size(), out.data(), out.size() + 1);
        out.resize(std::char_traits<char>::length(out.c_str()));
        return out;
    }
};
#endif

// ---- Files ----

// flags and mode are those of the C library's _open (such as _O_RDONLY | _O_BINARY and 0666). path: internal form.
KIROBC_API void* HxFileIOOpen(const char* path, int flags, int mode);      // null when it cannot be opened
KIROBC_API int HxFileIORead(void* file, void* buffer, unsigned int size);  // bytes read, 0 at the end, -1 on failure
KIROBC_API void HxFileIOClose(void* file);

#if defined(__cplusplus)
class HxFileIO {
  public:
    HxFileIO() = default;
    HxFileIO(const HxFileIO&) = delete;
    HxFileIO& operator=(const HxFileIO&) = delete;
    ~HxFileIO() { Close(); }
    bool Open(const std::string& path, int flags, int mode) {
        Close();
        file_ = HxFileIOOpen(path.c_str(), flags, mode);
        return IsOpen();
    }
    bool IsOpen() const { return file_ != nullptr; }
    int Read(void* buffer, unsigned int size) { return file_ ? HxFileIORead(file_, buffer, size) : -1; }
    void Close() {
        if (file_) HxFileIOClose(file_);
        file_ = nullptr;
    }

  private:
    void* file_ = nullptr;
};
#endif

// The full path (internal form) of a name in a key's folder. upperCase: the name is put in upper case. create: the
// folder is made when it is missing. Returns the length of the whole path; 0 when it cannot be formed.
KIROBC_API size_t HxFileToFullPath(const char* key, const char* name, bool upperCase, bool create, char* out,
                                   size_t size);

#if defined(__cplusplus)
class HxFile {
  public:
    static std::string ToFullPath(const std::string& key, const std::string& name, bool upperCase, bool create) {
        char out[1024];
        const std::size_t length = HxFileToFullPath(key.c_str(), name.c_str(), upperCase, create, out, sizeof out);
        return length > 0 && length < sizeof out ? std::string(out, length) : std::string();
    }
};

// Lists a folder, in the order of the file system; C++ only. Paths: internal form. Entries whose names EUC cannot hold
// are left out.
class HxFileFinder {
  public:
    // pattern: an absolute path whose last name may have "*" and "?". directories: folders alone, without "." and "..";
    // otherwise files alone. True when there is a first entry, which is the current one then.
    virtual bool Open(const char* pattern, bool directories) = 0;
    virtual bool Next() = 0;            // true when there is another, which is the current one then
    virtual const char* Current() = 0;  // its whole path, valid until Next or Close
    virtual void Close() = 0;
    virtual void Release() = 0;

  protected:
    ~HxFileFinder() = default;
};
// Null when there is no memory.
KIROBC_API HxFileFinder* HxFileFinderCreateInstance();

struct HxFileFinderRelease {
    void operator()(HxFileFinder* finder) const { finder->Release(); }
};
using HxFileFinderPtr = std::unique_ptr<HxFileFinder, HxFileFinderRelease>;
#endif

KIROBC_API size_t HxUtilGetStationId(char* out, size_t size);

// ---- Checks and databases. Each takes and fills the fields of the record that it names. ----

// The active model for a conversion; 0, or an error code (see kirodxf.h) and the model is as it was. kind 3: DXF or
// DWG.
KIRO_CONSTANT(kSxfNewModel, 0);    // option: an empty model, not modified; what it was is gone
KIRO_CONSTANT(kSxfModelAside, 1);  // the same, but the model is kept aside, with its changes that were not saved
KIRO_CONSTANT(kSxfModelBack, 2);   // the model that was kept aside is the active one again; nothing when there is none
KIROBC_API int SxfModelInit(int kind, int option);
// Checks the items that an export would write: those of a layout's pictures (drawing above 0), of a picture, or with
// both 0 of the whole model. kind 3: an export to DXF or DWG. Not 0: some are faulty; report: "DXF_Interface.lis" in
// the home folder, made anew, tells which.
KIROBC_API int SxfModelCheck(int kind, bool report, int drawing, int picture);

// Names of groups (1 to 4 bytes) and users (1 to 6) of a database, Shift-JIS. They are names of folders: none of
// \ / : * ? " < > | and no control character; no blank, of half or full width, at the ends; no "." at the ends; not the
// name of a device (CON, PRN, AUX, NUL, COM1 to COM9, LPT1 to LPT9). A user is not "ACCESS" or "FORMAT", which the
// database has in each group.
KIROBC_API int CheckGroupName(const char* name);            // 0 invalid, otherwise a value for CheckUserName
KIROBC_API int CheckUserName(const char* name, int group);  // group: that value; 0 invalid

// The block of dbOutParams becomes what the user's parameters are from the next start of the host on. 0 when saved;
// otherwise the ones before still are.
KIROBC_API int SavePlParameter(TARNAINFO* info);
KIROBC_API int SaveVrParameter(TARNAINFO* info);
// What was saved; 0 on success, or params is as before.
KIROBC_API int ReadPlParameter(PlOutParamBlock* params);
KIROBC_API int ReadVrParameter(VrOutParamBlock* params);

KIROBC_API int CheckPlDrawingName(TARNAINFO* info);  // 0 valid, 1 existing, other: wrong kind of file
KIROBC_API int CheckVrDrawingName(TARNAINFO* info);  // the same
KIROBC_API int GetPlInputDrawing(TARNAINFO* info);   // < 0 none, 0 plain list, > 0 list with model names
KIROBC_API int GetVrInputDrawing(TARNAINFO* info);   // the same
KIROBC_API int SetPlInputDrawing(TARNAINFO* info);
KIROBC_API int SetVrInputDrawing(TARNAINFO* info);
KIROBC_API int GetPlOutputModel(TARNAINFO* info);  // the number of models found

// The floppy with a Pelion database. 0 on success. what: 0: it can be read; 10: it is made ready to be written. Where
// these fail the user has been told. 1: fills plFloppyGroups; 2: fills plFloppyUsers for plGroup. Names are padded with
// blanks to the ends of their slots, without a NUL.
KIROBC_API int GetPlFloppy(int what, TARNAINFO* info);
