#include "KrMessages.h"

namespace {

constexpr struct {
    int number;
    const char* text;
} kMessages[] = {
    {1, "ファイルが見つかりません。"},
    {2, "ファイルを開けません。"},
    {3, "ファイルを読み込めません。"},
    {4, "ファイルに書き込めません。"},
    {5, "ファイルが既に存在します。"},
    {6, "フォルダが見つかりません。"},
    {7, "媒体の準備ができていません。"},
    {8, "媒体の空き容量が足りません。"},
    {9, "メモリが足りません。"},
    {10, "処理を中断しました。"},
    {83, "DWGファイルの書込みには対応していません。"},
};

}  // namespace

const char* HostMessage(int number) {
    for (const auto& message : kMessages)
        if (message.number == number) return message.text;
    return nullptr;
}
