#include "support/scripted_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace {

ScriptedPlatform* platform = nullptr;

// Told apart from the platform's own cookies by its size.
constexpr ULONG_PTR FAKE_COOKIE = 0x7A00;

const void* addressInModule = nullptr;
HMODULE module = nullptr;
std::basic_string<WCHAR> path;
std::vector<ULONG_PTR> cookies;
// The functions of the common controls by name, once a lookup has told.
std::map<std::string, FARPROC> found;

// Notes the call, and tells whether the script lets it fail; the last error is set then.
bool Fails(const std::string& line) {
  platform->lines.push_back(line);
  const auto failure = platform->failures.find(line);
  if (failure == platform->failures.end()) return false;
  SetLastError(failure->second);
  return true;
}

template <std::size_t SIZE>
struct Name {
  constexpr Name(const char (&name)[SIZE]) { std::copy_n(name, SIZE, text); }
  char text[SIZE];
};

template <Name NAME, typename Signature>
struct Relay;

// What the library gets for a function of the common controls.
template <Name NAME, typename Result, typename... Arguments>
struct Relay<NAME, Result(Arguments...)> {
  static Result Call(Arguments... arguments) {
    EXPECT_EQ(platform->active.size(), 1u);
    if constexpr (std::is_same_v<Result(Arguments...), decltype(ImageList_Create)>) {
      platform->createdLists.push_back({static_cast<int>(arguments)...});
    }
    if (!Fails(NAME.text)) {
      return std::bit_cast<Result (*)(Arguments...)>(found.at(NAME.text))(arguments...);
    }
    if constexpr (std::is_pointer_v<Result>) {
      return nullptr;
    } else {
      return static_cast<Result>(platform->results[NAME.text]);
    }
  }
};

template <Name NAME, typename Signature>
std::pair<const std::string, FARPROC> RelayOf() {
  return {NAME.text, std::bit_cast<FARPROC>(&Relay<NAME, Signature>::Call)};
}

const std::map<std::string, FARPROC> relays = {
    RelayOf<"ImageList_Create", decltype(ImageList_Create)>(),
    RelayOf<"ImageList_Destroy", decltype(ImageList_Destroy)>(),
    RelayOf<"ImageList_GetIcon", decltype(ImageList_GetIcon)>(),
    RelayOf<"ImageList_GetIconSize", decltype(ImageList_GetIconSize)>(),
    RelayOf<"ImageList_GetImageCount", decltype(ImageList_GetImageCount)>(),
    RelayOf<"ImageList_Remove", decltype(ImageList_Remove)>(),
    RelayOf<"ImageList_ReplaceIcon", decltype(ImageList_ReplaceIcon)>(),
    RelayOf<"ImageList_SetBkColor", decltype(ImageList_SetBkColor)>(),
};

BOOL WINAPI Query(DWORD flags, HANDLE context, void* subInstance, ULONG informationClass,
                  void* buffer, SIZE_T size, SIZE_T*) {
  EXPECT_EQ(flags, 0x80000010u);
  EXPECT_EQ(subInstance, nullptr);
  EXPECT_EQ(informationClass, 1u);
  EXPECT_EQ(size, 16u);
  addressInModule = context;
  if (Fails("QueryActCtxW")) return FALSE;
  static_cast<ACTIVATION_CONTEXT_BASIC_INFORMATION*>(buffer)->hActCtx = platform->moduleContext;
  return TRUE;
}

BOOL WINAPI Module(DWORD flags, LPCWSTR address, HMODULE* of) {
  EXPECT_EQ(flags, 6u);
  EXPECT_EQ(static_cast<const void*>(address), addressInModule);
  if (Fails("GetModuleHandleExW")) return FALSE;
  const BOOL result = GetModuleHandleExW(flags, address, of);
  module = *of;
  return result;
}

DWORD WINAPI Path(HMODULE of, WCHAR* buffer, DWORD capacity) {
  EXPECT_EQ(of, module);
  EXPECT_EQ(capacity, 261u);
  if (Fails("GetModuleFileNameW")) return 0;
  const DWORD length = GetModuleFileNameW(of, buffer, capacity);
  path = buffer;
  return platform->pathLength ? platform->pathLength : length;
}

HANDLE WINAPI Context(const ACTCTXW* description) {
  EXPECT_EQ(description->cbSize, 56u);
  EXPECT_EQ(description->dwFlags, 0x88u);
  EXPECT_EQ(description->lpSource, path);
  EXPECT_EQ(reinterpret_cast<ULONG_PTR>(description->lpResourceName), 3u);
  EXPECT_EQ(description->hModule, module);
  if (Fails("CreateActCtxW")) return INVALID_HANDLE_VALUE;
  return platform->createdContext ? platform->createdContext : CreateActCtxW(description);
}

BOOL WINAPI Activate(HANDLE context, ULONG_PTR* cookie) {
  platform->errorsAtActivation.push_back(GetLastError());
  const bool fake = context == ScriptedPlatform::FakeContext();
  EXPECT_TRUE(fake || context == nullptr);
  if (Fails(fake ? "Activate fake" : "Activate 0")) return FALSE;
  *cookie = FAKE_COOKIE + cookies.size();
  if (!fake && !ActivateActCtx(context, cookie)) return FALSE;
  cookies.push_back(*cookie);
  platform->active.push_back(context);
  return TRUE;
}

BOOL WINAPI Deactivate(DWORD flags, ULONG_PTR cookie) {
  Fails("Deactivate");
  EXPECT_EQ(flags, 0u);
  if (cookies.empty() || cookies.back() != cookie) {
    ADD_FAILURE() << "not the latest activation";
    return FALSE;
  }
  const bool fake = platform->active.back() == ScriptedPlatform::FakeContext();
  cookies.pop_back();
  platform->active.pop_back();
  const BOOL result = fake || DeactivateActCtx(flags, cookie);
  SetLastError(ScriptedPlatform::ERROR_OF_DEACTIVATION);
  return result;
}

BOOL WINAPI Find(DWORD flags, const GUID* extension, ULONG section, LPCWSTR name,
                 ACTCTX_SECTION_KEYED_DATA* entry) {
  EXPECT_EQ(flags, 0u);
  EXPECT_EQ(extension, nullptr);
  EXPECT_EQ(section, 2u);
  EXPECT_EQ(std::basic_string<WCHAR>(name), TEXT("Comctl32.dll"));
  EXPECT_EQ(entry->cbSize, 112u);
  EXPECT_EQ(platform->active.size(), 1u);
  Fails("Find");
  return platform->redirects;
}

HMODULE WINAPI Load(LPCWSTR name) {
  EXPECT_EQ(std::basic_string<WCHAR>(name), TEXT("Comctl32.dll"));
  EXPECT_GE(platform->active.size(), 1u);
  return Fails("LoadLibraryW") ? nullptr : LoadLibraryW(name);
}

FARPROC WINAPI Lookup(HMODULE in, LPCSTR name) {
  EXPECT_EQ(platform->active.size(), 2u) << "the lookup's own context, inside the call's";
  if (Fails(std::string("Lookup ") + name)) return nullptr;
  found[name] = GetProcAddress(in, name);
  return relays.at(name);
}

ATOM WINAPI Register(const WNDCLASSW* windowClass) {
  EXPECT_EQ(platform->active.size(), 1u);
  if (module) {
    EXPECT_EQ(windowClass->hInstance, module);
  }
  return Fails("RegisterClassW") ? ATOM{0} : RegisterClassW(windowClass);
}

HWND WINAPI Window(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                   int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                   void* parameter) {
  EXPECT_EQ(platform->active.size(), 1u);
  if (Fails("CreateWindowExW")) return nullptr;
  return CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent, menu,
                         instance, parameter);
}

BOOL WINAPI Destroy(HICON icon) {
  platform->errorsAtDestroyIcon.push_back(GetLastError());
  return DestroyIcon(icon);
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
  replace("RegisterClassW", &Register);
  replace("CreateWindowExW", &Window);
  replace("DestroyIcon", &Destroy);
}

ScriptedPlatform::~ScriptedPlatform() {
  patches.clear();
  platform = nullptr;
}

std::vector<std::string> ScriptedPlatform::Take() { return std::exchange(lines, {}); }

HANDLE ScriptedPlatform::FakeContext() {
  static int place = 0;
  return &place;
}
