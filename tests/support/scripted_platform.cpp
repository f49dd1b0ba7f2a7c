#include "support/scripted_platform.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>

namespace {

using Text = std::basic_string<WCHAR>;

ScriptedPlatform* platform = nullptr;

// Values that the library has to pass on.
const void* addressInModule = nullptr;
HMODULE module = nullptr;
Text path;

// Logs the call. Returns the script's answer, or else the result of `call`.
template <typename Call>
auto Note(const std::string& line, Call call) {
  platform->errors[line].push_back(GetLastError());
  platform->lines.push_back(line);
  const auto answer = platform->answers.find(line);
  if (answer == platform->answers.end()) return call();
  SetLastError(answer->second.error);
  using Result = decltype(call());
  return Result(answer->second.result);
}

template <std::size_t kSize>
struct Name {
  constexpr Name(const char (&name)[kSize]) { std::copy_n(name, kSize, text); }
  char text[kSize];
};

void ExpectNewIconList(int, int, UINT flags, int count, int growth) {
  EXPECT_EQ(std::tuple(flags, count, growth), std::tuple(0x10u, 0, 100));
}

// The functions that relays call; those of the common controls are the ones last looked up.
std::map<std::string, FARPROC> targets;

// The replacement of a function for which only the context is checked, with its name.
template <Name NAME, typename Result, typename... Arguments>
std::pair<const std::string, FARPROC> RelayTo(Result (*function)(Arguments...)) {
  targets[NAME.text] = std::bit_cast<FARPROC>(function);
  const auto relay = [](Arguments... arguments) {
    EXPECT_EQ(platform->active, 1u) << NAME.text;
    if constexpr (std::is_same_v<Result(Arguments...), decltype(ImageList_Create)>) {
      ExpectNewIconList(arguments...);
    }
    const auto target = std::bit_cast<Result (*)(Arguments...)>(targets.at(NAME.text));
    return Note(NAME.text, [&] { return target(arguments...); });
  };
  return {NAME.text, std::bit_cast<FARPROC>(+relay)};
}

const std::map<std::string, FARPROC> kRelays = {
    RelayTo<"CreateWindowExW">(&CreateWindowExW),
    RelayTo<"ImageList_Create">(&ImageList_Create),
    RelayTo<"ImageList_Destroy">(&ImageList_Destroy),
    RelayTo<"ImageList_GetIcon">(&ImageList_GetIcon),
    RelayTo<"ImageList_GetIconSize">(&ImageList_GetIconSize),
    RelayTo<"ImageList_GetImageCount">(&ImageList_GetImageCount),
    RelayTo<"ImageList_Remove">(&ImageList_Remove),
    RelayTo<"ImageList_ReplaceIcon">(&ImageList_ReplaceIcon),
    RelayTo<"ImageList_SetBkColor">(&ImageList_SetBkColor),
    RelayTo<"RegisterClassW">(&RegisterClassW),
};

BOOL WINAPI Query(DWORD flags, HANDLE address, void* subInstance, ULONG about, void* buffer,
                  SIZE_T size, SIZE_T*) {
  EXPECT_EQ(std::tuple(flags, subInstance, about, size), std::tuple(0x80000010u, nullptr, 1u, 16u));
  addressInModule = address;
  const HANDLE context = Note("QueryActCtxW", [] { return HANDLE(); });
  static_cast<ACTIVATION_CONTEXT_BASIC_INFORMATION*>(buffer)->hActCtx = context;
  return context != INVALID_HANDLE_VALUE;
}

BOOL WINAPI Module(DWORD flags, LPCWSTR address, HMODULE* of) {
  EXPECT_EQ(flags, 6u);
  EXPECT_EQ(static_cast<const void*>(address), addressInModule);
  const BOOL result =
      Note("GetModuleHandleExW", [=] { return GetModuleHandleExW(flags, address, of); });
  module = *of;
  return result;
}

DWORD WINAPI Path(HMODULE of, WCHAR* buffer, DWORD capacity) {
  EXPECT_EQ(std::tuple(of, capacity), std::tuple(module, 261u));
  const DWORD length = GetModuleFileNameW(of, buffer, capacity);
  path = buffer;
  return Note("GetModuleFileNameW", [=] { return length; });
}

HANDLE WINAPI Context(const ACTCTXW* asked) {
  EXPECT_EQ(std::tuple(asked->cbSize, asked->dwFlags, asked->lpResourceName, asked->hModule),
            std::tuple(56u, 0x88u, MAKEINTRESOURCEW(3), module));
  EXPECT_EQ(asked->lpSource, path);
  return Note("CreateActCtxW", [=] { return CreateActCtxW(asked); });
}

BOOL WINAPI Activate(HANDLE context, ULONG_PTR* cookie) {
  const bool fake = reinterpret_cast<LONG_PTR>(context) == ScriptedPlatform::kFakeContext;
  EXPECT_TRUE(fake || !context);
  return Note(fake ? "Activate fake" : "Activate 0", [=] {
    *cookie = ++platform->active;
    return TRUE;
  });
}

BOOL WINAPI Deactivate(DWORD flags, ULONG_PTR cookie) {
  EXPECT_EQ(flags, 0u);
  EXPECT_EQ(cookie, platform->active--) << "not the latest activation";
  const BOOL result = Note("Deactivate", [] { return TRUE; });
  SetLastError(ScriptedPlatform::kErrorOfDeactivation);
  return result;
}

BOOL WINAPI Find(DWORD flags, const GUID* extension, ULONG section, LPCWSTR name,
                 ACTCTX_SECTION_KEYED_DATA* entry) {
  EXPECT_EQ(std::tuple(flags, extension, section, Text(name), entry->cbSize),
            std::tuple(0u, nullptr, 2u, TEXT("Comctl32.dll"), 112u));
  EXPECT_EQ(platform->active, 1u);
  return Note("Find", [] { return FALSE; });
}

HMODULE WINAPI Load(LPCWSTR name) {
  EXPECT_EQ(name, Text(TEXT("Comctl32.dll")));
  EXPECT_GE(platform->active, 1u);
  return Note("LoadLibraryW", [=] { return LoadLibraryW(name); });
}

FARPROC WINAPI Lookup(HMODULE in, LPCSTR name) {
  EXPECT_EQ(platform->active, 2u) << "the lookup's own context, inside the call's";
  return Note(std::string("Lookup ") + name, [=] {
    targets[name] = GetProcAddress(in, name);
    return kRelays.at(name);
  });
}

BOOL WINAPI Destroy(HICON icon) {
  return Note("DestroyIcon", [=] { return DestroyIcon(icon); });
}

}  // namespace

ScriptedPlatform::ScriptedPlatform() {
  platform = this;
  const auto replace = [this](const char* name, auto* replacement) {
    patches.push_back(std::make_unique<ImportPatch>(name, replacement));
  };
  replace("QueryActCtxW", &Query);
  replace("GetModuleHandleExW", &Module);
  replace("GetModuleFileNameW", &Path);
  replace("CreateActCtxW", &Context);
  replace("ActivateActCtx", &Activate);
  replace("DeactivateActCtx", &Deactivate);
  replace("FindActCtxSectionStringW", &Find);
  replace("LoadLibraryW", &Load);
  replace("GetProcAddress", &Lookup);
  replace("RegisterClassW", kRelays.at("RegisterClassW"));
  replace("CreateWindowExW", kRelays.at("CreateWindowExW"));
  replace("DestroyIcon", &Destroy);
}

ScriptedPlatform::~ScriptedPlatform() {
  patches.clear();
  platform = nullptr;
}

std::vector<std::string> ScriptedPlatform::Take() {
  errorsAt = std::exchange(errors, {});
  return std::exchange(lines, {});
}
