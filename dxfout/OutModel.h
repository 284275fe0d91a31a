// What there is to be written: the pictures and the drawing layouts of the active model.
#pragma once

#include <string>
#include <vector>

constexpr int kLastPicture = 256;
constexpr int kLastLayout = 256;

int CurrentPicture();
// Of a picture from 1 to 256; any other has none.
int ItemsOfPicture(int picture);

struct OutLayout {
    int number;
    std::string name;  // Shift-JIS, at most 256 bytes
};
// The layouts that show something, by number.
std::vector<OutLayout> OutLayouts();
bool HasWindows(int layout);
// Whether any of the layout's windows shows a picture with items.
bool HasItems(int layout);
