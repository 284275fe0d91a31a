#include "hostlayer/kirodxf/DxfErrorText.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "drawing/Results.h"
#include "entry/host/kirodxf.h"

// What the reader of drawings answers goes on as the host's own codes.
static_assert(drawing::kNoFile == kDxfNoFile && drawing::kCannotRead == kDxfCannotRead);
static_assert(drawing::kNoDrawing == kDxfNoDrawing && drawing::kCutOff == kDxfCutOff);
static_assert(drawing::kBadPair == kDxfBadPair && drawing::kBroken == kDxfBroken);
static_assert(drawing::kDwgDrawing == kDxfDwgDrawing);
static_assert(drawing::kNoMemory == kDxfNoMemory);

namespace {

struct ErrorText {
    unsigned code;
    const char* text;
};

// 1 to 19: files; 20 to 39: what is in the drawing file; 40 to 59: tables and parameters; 60 to 79: the model;
// 80 to 99: the system.
constexpr ErrorText kErrorTexts[] = {
    {0, "正常に終了しました。"},
    {1, "ファイルが見つかりません。"},
    {2, "ファイルを開くことができません。"},
    {3, "ファイルは他のプログラムで使用されています。"},
    {4, "ファイルを読み込むことができません。"},
    {5, "ファイルを作成することができません。"},
    {6, "ファイルに書き込むことができません。"},
    {7, "書き込みが禁止されています。"},
    {8, "ディスクの空き容量が足りません。"},
    {9, "媒体の準備ができていません。"},
    {10, "ファイル名が正しくありません。"},
    {11, "フォルダが見つかりません。"},
    {20, "DXFファイルではありません。"},
    {21, "DWGファイルではありません。"},
    {22, "このバージョンのファイルには対応していません。"},
    {23, "ファイルが途中で終わっています。"},
    {24, "グループコードと値の組が正しくありません。"},
    {25, "ファイルの内容が壊れています。"},
    {26, "変換できる要素がありません。"},
    {27, "パスワードが必要です。"},
    {28, "パスワードが違います。"},
    {29, "DWGファイルの読込みには対応していません。"},
    {30, "シェイプファイルの読込みには対応していません。"},
    {40, "レイヤ変換テーブルファイルが見つかりません。"},
    {41, "レイヤ変換テーブルファイルに誤りがあります。"},
    {42, "変換パラメータに誤りがあります。"},
    {43, "変換パラメータを保存することができません。"},
    {60, "要素数が最大値を超えました。"},
    {61, "指定されたピクチャがありません。"},
    {62, "指定された図面がありません。"},
    {63, "図面の範囲を超える座標があります。"},
    {80, "メモリが足りません。"},
    {81, "処理を中止しました。"},
    {82, "内部エラーが発生しました。"},
    {83, "DWGファイルの書込みには対応していません。"},
    {84, "このバージョンのファイルの書込みには対応していません。"},
};

const char* TextOf(unsigned code) {
    const auto* found = std::find_if(std::begin(kErrorTexts), std::end(kErrorTexts),
                                     [code](const ErrorText& entry) { return entry.code == code; });
    return found != std::end(kErrorTexts) ? found->text : nullptr;
}

}  // namespace

const char* KnownDxfErrorText(int number) { return number > 0 ? TextOf(static_cast<unsigned>(number)) : nullptr; }

std::size_t DxfErrorText(int code, char* out, std::size_t size) {
    // Negated as unsigned: the smallest int has no positive counterpart.
    const unsigned magnitude = code < 0 ? 0u - static_cast<unsigned>(code) : static_cast<unsigned>(code);
    const char* const known = TextOf(magnitude);
    const int length =
        known ? std::snprintf(out, size, "%s", known)
              : std::snprintf(out, size, "%s%d%s", "変換中にエラーが発生しました。（エラーコード ", code, "）");
    if (length < 0 || size == 0) return 0;
    return std::min(static_cast<std::size_t>(length), size - 1);
}
