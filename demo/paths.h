// File names of any length.
#pragma once

#include <string>
#include <string_view>

namespace demo {

// The absolute path, with backslashes, without the prefix \\?\ and without a separator at the end
// (except of a drive's root folder).
std::wstring FullPath(std::wstring_view path);

// A full path with the prefix \\?\, with which file operations take more than 260 characters.
std::wstring LongPath(std::wstring_view fullPath);

// The path of the file `name` in `folder`.
std::wstring Join(std::wstring_view folder, std::wstring_view name);

// The part after the last separator; of a drive's root folder the whole path.
std::wstring FileName(std::wstring_view path);

}  // namespace demo
