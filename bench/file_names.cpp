#include "side.h"

const std::vector<std::wstring>& FileNames() {
  static const std::vector<std::wstring> names = [] {
    const wchar_t* const extensions[] = {
        L"txt", L"doc", L"pdf", L"exe", L"dll", L"png", L"jpg", L"gif", L"bmp",  L"ico",
        L"zip", L"tar", L"gz",  L"7z",  L"mp3", L"wav", L"ogg", L"avi", L"mp4",  L"mkv",
        L"htm", L"css", L"js",  L"xml", L"csv", L"xls", L"ppt", L"rtf", L"ini",  L"log",
        L"bat", L"cmd", L"reg", L"ttf", L"cpp", L"h",   L"py",  L"sh",  L"json", L"md",
    };
    std::vector<std::wstring> made;
    for (const wchar_t* extension : extensions) made.push_back(std::wstring(L"file.") + extension);
    return made;
  }();
  return names;
}
