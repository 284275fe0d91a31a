#include "catalogue/DemoHome.h"

#include <windows.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>

#include "hostlayer/include/KiroHost.h"
#include "ui/Text.h"

namespace kiro {
namespace {

std::string BytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string SjisFromUtf8(const std::string& text) {
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                             wide.data(), static_cast<int>(wide.size()))));
    if (auto sjis = ui::ToSjis(wide)) return *sjis;
    throw std::runtime_error("the demonstration has a character that no table can have");
}

void Write(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream out(file, std::ios::binary);
    if (!out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())))
        throw std::runtime_error("cannot be written: " + file.string());
}

// The drawings of a user, and models, are told from each other by their names alone.
void MakeEmptyFiles(const std::filesystem::path& home, const std::filesystem::path& list) {
    std::istringstream lines(BytesOf(list));
    for (std::string line; std::getline(lines, line);) {
        const std::filesystem::path file = home / ui::ToWide(SjisFromUtf8(line));
        std::filesystem::create_directories(file.parent_path());
        Write(file, "");
    }
}

void MakeDatabases(const std::filesystem::path& home, const std::filesystem::path& demo) {
    const struct {
        const wchar_t* name;
        const wchar_t* folder;
    } files[] = {{L"pump.dos", L"TARNA\\DOS"}, {L"PELION.DB", L"TARNA\\DB"}, {L"plant.vdb", L"TARNA\\DB_R"}};
    for (const auto& file : files) {
        std::filesystem::create_directories(home / file.folder);
        Write(home / file.folder / file.name, BytesOf(demo / file.name));
    }
    MakeEmptyFiles(home, demo / L"files.txt");
}

}  // namespace

void MakeDemoHome(const std::filesystem::path& home) {
    const std::filesystem::path demo = KIRO_DEMO;
    std::filesystem::remove_all(home);
    const auto tables = home / L"DXF" / L"TABLE";
    std::filesystem::create_directories(tables);
    Write(home / L"DXF" / L"demo.dxf", BytesOf(demo / L"demo.dxf"));
    for (const auto& table : std::filesystem::directory_iterator(demo / L"tables"))
        Write(tables / table.path().filename(), SjisFromUtf8(BytesOf(table.path())));
    MakeDatabases(home, demo / L"databases");
    KiroHostSetHome(home.c_str());
    if (KiroHostLoadModel((demo / L"model.json").c_str(), nullptr, 0) != 0)
        throw std::runtime_error("the model of the demonstration cannot be read");
    KiroHostSetModified(false);
}

}  // namespace kiro
