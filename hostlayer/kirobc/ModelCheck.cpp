// The check of the model before an export. Its list is the file that the readers of conversion tables list their errors
// in.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "entry/host/kirobc.h"
#include "hostlayer/include/KiroHost.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/HomeFolder.h"
#include "hostlayer/kirocontrol/CallNote.h"
#include "hostlayer/kirodlglib/KrFileHandle.h"
#include "hostlayer/kiromdl/ModelFacts.h"

namespace {

constexpr int kFailure = -1;
constexpr int kPictures = 256;

// What is written of the model: the pictures of a layout, one picture, or with neither all of them.
std::vector<int> PicturesOf(int drawing, int picture) {
    std::vector<int> pictures;
    if (drawing > 0) {
        const HxDlo* layout = HxDloListGetDlo(HxModelGetDloList(KiroHostModel()), drawing);
        for (int i = 0; i < HxDloGetDloWindowCount(layout); ++i)
            pictures.push_back(HxDloGetDloWindowPicture(layout, i));
        std::ranges::sort(pictures);
        pictures.erase(std::unique(pictures.begin(), pictures.end()), pictures.end());
    } else if (picture > 0) {
        pictures.push_back(picture);
    } else {
        for (int i = 1; i <= kPictures; ++i) pictures.push_back(i);
    }
    return pictures;
}

struct Findings {
    std::string list;
    int count = 0;
};

Findings Check(const std::vector<int>& pictures) {
    Findings findings;
    for (const int picture : pictures) {
        KiroModelFault fault;
        for (int i = 0; KiroModelGetFault(picture, i, &fault); ++i, ++findings.count)
            findings.list += "**** ピクチャ " + std::to_string(picture) + " アイテム " + std::to_string(fault.item) +
                             " : " + fault.text + " ****\r\n";
    }
    findings.list += findings.count ? "エラーアイテム数 : " + std::to_string(findings.count) + "\r\n"
                                    : std::string("エラーはありません。\r\n");
    return findings;
}

// Whoever still looks at the old list keeps it, as with the lists of tables.
void WriteList(const std::string& text) {
    const auto folder = kirobc::FolderOfKey("", true);
    if (!folder) return;
    const std::wstring path = kirobc::JoinPath(*folder, L"DXF_Interface.lis");
    DeleteFileW(path.c_str());
    const FileHandle file = OpenFileHandle(path, GENERIC_WRITE, kShareAll, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    DWORD written = 0;
    if (file) WriteFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

}  // namespace

int SxfModelInit(int kind, int option) {
    const int error = KiroModelInit(option);
    NoteCall("SxfModelInit", {HostInteger("kind", kind), HostInteger("option", option)}, error);
    return error;
}

int SxfModelCheck(int kind, bool report, int drawing, int picture) {
    const int faulty = kirobc::Guarded(kFailure, [=] {
        const Findings findings = Check(PicturesOf(drawing, picture));
        if (report) WriteList(findings.list);
        return findings.count;
    });
    NoteCall("SxfModelCheck",
             {HostInteger("kind", kind), HostFlag("report", report), HostInteger("drawing", drawing),
              HostInteger("picture", picture)},
             faulty);
    return faulty;
}
