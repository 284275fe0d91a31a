#include "dxfin/ModelBatch.h"

#include <cstdio>

#include "dxfin/ModelNames.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirodxf.h"
#include "entry/host/kiromdl.h"
#include "ui/Text.h"

namespace {

constexpr int kDrawings = 3;  // of the kinds of conversions: DXF and DWG

std::string Now() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    char text[64];
    std::snprintf(text, sizeof text, "%04d/%02d/%02d %02d:%02d:%02d", now.wYear, now.wMonth, now.wDay, now.wHour,
                  now.wMinute, now.wSecond);
    return text;
}

}  // namespace

std::string HostErrorText(int code) { return HxEucEncoder::Euc2Sjis(DxfGetErrorMessage(code)); }

ModelAside::ModelAside() : error_(SxfModelInit(kDrawings, kSxfModelAside)) {}

ModelAside::~ModelAside() {
    if (error_ == 0) SxfModelInit(kDrawings, kSxfModelBack);
}

std::string ConvertDrawing(const std::string& drawing, const std::string& model) {
    if (const int error = dxfin(drawing.c_str(), nullptr)) return HostErrorText(error);
    const int error = Mdlwrite(model.c_str());
    return error == 0 ? std::string() : HostErrorText(error);
}

// Other programs may read it meanwhile.
BatchListing::BatchListing(KrUtility& utility, const std::string& title, const std::string& pattern,
                           const std::string& table) {
    char path[kKrPathSize];
    const std::string internal = HxFile::ToFullPath(kModelKey, kName, false, true);
    if (internal.empty() || internal.size() >= sizeof path) return;
    path[internal.copy(path, internal.size())] = 0;
    if (!utility.RealPathName(kModelKey, path, sizeof path)) return;
    file_ = CreateFileW(kiro::ui::ToWide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    whole_ = file_ != INVALID_HANDLE_VALUE;
    Add(title + "　" + Now());
    Add("ファイル : " + pattern);
    Add("レイヤ変換テーブル : " + table);
}

BatchListing::~BatchListing() {
    if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
}

void BatchListing::Add(const std::string& line) {
    const std::string bytes = line + "\r\n";
    DWORD written = 0;
    if (!whole_) return;
    whole_ =
        WriteFile(file_, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) && written == bytes.size();
    if (whole_) return;
    // No half line of it stays.
    SetFilePointer(file_, -static_cast<LONG>(written), nullptr, FILE_CURRENT);
    SetEndOfFile(file_);
}
