#include <algorithm>
#include <string_view>

#include <windows.h>

namespace {

void Give(std::u16string_view part, WCHAR* target) {
  if (target) {
    target[part.copy(target, part.size())] = 0;
  }
}

}  // namespace

// The parts are given whole; the caller's buffers are large enough by contract.
void _wsplitpath(const WCHAR* path, WCHAR* drive, WCHAR* directory, WCHAR* name, WCHAR* extension) {
  std::u16string_view rest(path);
  const std::size_t driveLength = rest.size() >= 2 && rest[1] == u':' ? 2 : 0;
  Give(rest.substr(0, driveLength), drive);
  rest.remove_prefix(driveLength);
  const std::size_t slash = rest.find_last_of(u"/\\");
  const std::size_t directoryLength = slash == std::u16string_view::npos ? 0 : slash + 1;
  Give(rest.substr(0, directoryLength), directory);
  rest.remove_prefix(directoryLength);
  const std::size_t dot = std::min(rest.rfind(u'.'), rest.size());
  Give(rest.substr(0, dot), name);
  Give(rest.substr(dot), extension);
}
