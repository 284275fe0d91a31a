// The utility object of one dialog. Its operations never throw: one that runs out of memory fails.
#pragma once

#include <windows.h>

#include <string>

#include "GuidanceLine.h"
#include "KrFileCheck.h"
#include "entry/host/KrUtility.h"

class KrUtilityImpl final : public KrUtility {
  public:
    void Release() override { delete this; }

    void SetParentWindow(KrWindow dialog) override;
    void SetMessageZone() override;
    void MessageText(const char* text) override;
    void ErrorText(const char* text) override;
    void SetCaption(const char* caption) override;

    void SetKeyword(const char* key) override;
    void SetFloppy(const char* key) override;
    void SetComment(const char* comment) override;
    void SetWildcard(const char* pattern) override;
    int FileDialog(int mode) override;
    const char* GetFileName() override { return fileName_.c_str(); }

    int CheckFile(const char* name) override;
    int CheckInputFile(const char* name) override;
    int CheckOutputFile(const char* name) override;
    int CheckFileName(const char* name) override;

    int CheckNumber(const char* text, int kind, double min, double max) override;
    int CheckScale(const char* text, double* value) override;
    void DisplayScale(double scale, char* out, int size) override;
    const char* DtoA(double value) override;
    int CheckModelName(const char* name) override;

    void SpaceNull(char* text) override;
    void ExceptSpace(char* text) override;
    void KillFocus(char* text) override;

    int ToEUC(char* text, int size) override;
    void ToSJIS(char* text) override;
    void EucToSjis(char* out, const char* in, int size) override;
    void SjisToEuc(char* out, const char* in, int size) override;

    int InternalPathName(const char* key, char* path, int size) override;
    int RealPathName(const char* key, char* path, int size) override;
    int Access(const char* key, const char* path) override;

    int GetUsedFile(const char* key, int kind, KrStringList* list, int* max, KrWindow combo) override;
    int SetUsedFile(const char* key, int kind, const KrStringList* list, const int* max) override;
    void SetFilePath(KrStringList* list, const char* name, KrWindow combo, int max) override;
    void DelFilePath(KrStringList* list, const char* name, KrWindow combo, int max) override;

    int GetMessageText(int number, char* out, int size) override;
    int GetFilnameUL(const char* key) override;
    void SetFocus(int controlId) override;

  private:
    std::wstring FolderOf(const char* key) const;
    std::wstring CurrentFolder() const { return FolderOf(nullptr); }
    std::string ListKey(const char* key) const { return key ? key : key_; }

    // The message boxes. Report: true when there is nothing to report.
    bool Report(FileProblem problem, const char* name) const;
    int Box(const std::wstring& text, UINT style) const;
    bool AskOverwrite(const char* name) const;

    HWND parent_ = nullptr;
    GuidanceLine line_;
    std::wstring caption_;
    std::wstring comment_;
    std::wstring wildcard_;
    std::string key_;        // names the used-file list
    std::string folderKey_;  // names the folder
    std::string fileName_;
    char number_[kKrTextSize] = "";
};
