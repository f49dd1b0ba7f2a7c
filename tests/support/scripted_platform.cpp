#include "support/scripted_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <iterator>
#include <string_view>
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

// A function of the common controls: the relay that the library gets, and where the platform has
// the function itself, once a lookup has told.
struct ImageCall {
  const char* name;
  FARPROC relay;
  FARPROC function;
};

ImageCall& ImageCallNumber(std::size_t index);

void Note(std::string line) { platform->lines.push_back(std::move(line)); }

// Whether the script lets this call fail; the last error is set then.
bool Fails(const char* name) {
  const auto failure = platform->failures.find(name);
  if (failure == platform->failures.end()) return false;
  SetLastError(failure->second);
  return true;
}

template <std::size_t INDEX, typename Signature>
struct Relay;

// Image call number INDEX, which goes on to the platform's own.
template <std::size_t INDEX, typename Result, typename... Arguments>
struct Relay<INDEX, Result(Arguments...)> {
  static Result Call(Arguments... arguments) {
    const ImageCall& call = ImageCallNumber(INDEX);
    Note(call.name);
    EXPECT_EQ(platform->active.size(), 1u);
    if (!Fails(call.name)) {
      return std::bit_cast<Result (*)(Arguments...)>(call.function)(arguments...);
    }
    if constexpr (std::is_pointer_v<Result>) {
      return nullptr;
    } else {
      return static_cast<Result>(platform->results[call.name]);
    }
  }
};

template <std::size_t INDEX, typename Signature>
ImageCall CallOf(const char* name) {
  return {name, std::bit_cast<FARPROC>(&Relay<INDEX, Signature>::Call), nullptr};
}

ImageCall imageCalls[] = {
    CallOf<0, decltype(ImageList_Create)>("ImageList_Create"),
    CallOf<1, decltype(ImageList_Destroy)>("ImageList_Destroy"),
    CallOf<2, decltype(ImageList_GetIcon)>("ImageList_GetIcon"),
    CallOf<3, decltype(ImageList_GetIconSize)>("ImageList_GetIconSize"),
    CallOf<4, decltype(ImageList_GetImageCount)>("ImageList_GetImageCount"),
    CallOf<5, decltype(ImageList_Remove)>("ImageList_Remove"),
    CallOf<6, decltype(ImageList_ReplaceIcon)>("ImageList_ReplaceIcon"),
    CallOf<7, decltype(ImageList_SetBkColor)>("ImageList_SetBkColor"),
};

ImageCall& ImageCallNumber(std::size_t index) { return imageCalls[index]; }

BOOL WINAPI Query(DWORD flags, HANDLE context, void* subInstance, ULONG informationClass,
                  void* buffer, SIZE_T size, SIZE_T*) {
  Note("Query");
  EXPECT_EQ(flags, 0x80000010u);
  EXPECT_EQ(subInstance, nullptr);
  EXPECT_EQ(informationClass, 1u);
  EXPECT_EQ(size, 16u);
  addressInModule = context;
  if (Fails("QueryActCtxW")) return FALSE;
  static_cast<ACTIVATION_CONTEXT_BASIC_INFORMATION*>(buffer)->hActCtx = platform->moduleContext;
  return TRUE;
}

BOOL WINAPI Module(DWORD flags, LPCWSTR address, HMODULE* found) {
  Note("Module");
  EXPECT_EQ(flags, 6u);
  EXPECT_EQ(static_cast<const void*>(address), addressInModule);
  if (Fails("GetModuleHandleExW")) return FALSE;
  const BOOL result = GetModuleHandleExW(flags, address, found);
  module = *found;
  return result;
}

DWORD WINAPI Path(HMODULE of, WCHAR* buffer, DWORD capacity) {
  Note("Path");
  EXPECT_EQ(of, module);
  EXPECT_EQ(capacity, 261u);
  if (Fails("GetModuleFileNameW")) return 0;
  DWORD length = platform->pathLength;
  if (length == 0) {
    length = GetModuleFileNameW(of, buffer, capacity);
  } else {
    std::fill_n(buffer, std::min(length, capacity - 1), WCHAR{'p'});
    buffer[std::min(length, capacity - 1)] = 0;
  }
  path = buffer;
  return length;
}

HANDLE WINAPI Context(const ACTCTXW* description) {
  Note("Context");
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
  EXPECT_TRUE(fake || context == nullptr || context == platform->moduleContext);
  Note(fake ? "Activate fake" : context ? "Activate own" : "Activate 0");
  if (Fails("ActivateActCtx")) return FALSE;
  *cookie = FAKE_COOKIE + cookies.size();
  if (!fake && !ActivateActCtx(context, cookie)) return FALSE;
  cookies.push_back(*cookie);
  platform->active.push_back(context);
  return TRUE;
}

BOOL WINAPI Deactivate(DWORD flags, ULONG_PTR cookie) {
  Note("Deactivate");
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
  Note("Find");
  EXPECT_EQ(flags, 0u);
  EXPECT_EQ(extension, nullptr);
  EXPECT_EQ(section, 2u);
  EXPECT_EQ(std::basic_string<WCHAR>(name), TEXT("Comctl32.dll"));
  EXPECT_EQ(entry->cbSize, 112u);
  EXPECT_EQ(platform->active.size(), 1u);
  return platform->redirects;
}

HMODULE WINAPI Load(LPCWSTR name) {
  Note("Load");
  EXPECT_EQ(std::basic_string<WCHAR>(name), TEXT("Comctl32.dll"));
  EXPECT_GE(platform->active.size(), 1u);
  return Fails("LoadLibraryW") ? nullptr : LoadLibraryW(name);
}

FARPROC WINAPI Lookup(HMODULE in, LPCSTR name) {
  Note(std::string("Lookup ") + name);
  EXPECT_EQ(platform->active.size(), 2u) << "the lookup's own context, inside the call's";
  const auto absent = platform->missing.find(name);
  if (absent != platform->missing.end()) {
    SetLastError(absent->second);
    return nullptr;
  }
  const auto call =
      std::find_if(std::begin(imageCalls), std::end(imageCalls),
                   [&](const ImageCall& c) { return std::string_view(c.name) == name; });
  if (call == std::end(imageCalls)) {
    ADD_FAILURE() << name << " is not a call of the library";
    return nullptr;
  }
  call->function = GetProcAddress(in, name);
  return call->relay;
}

ATOM WINAPI Register(const WNDCLASSW* windowClass) {
  Note("RegisterClassW");
  EXPECT_EQ(platform->active.size(), 1u);
  if (module) {
    EXPECT_EQ(windowClass->hInstance, module);
  }
  return Fails("RegisterClassW") ? ATOM{0} : RegisterClassW(windowClass);
}

HWND WINAPI Window(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                   int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                   void* parameter) {
  Note("CreateWindowExW");
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
  Patch("QueryActCtxW", &Query);
  Patch("GetModuleHandleExW", &Module);
  Patch("GetModuleFileNameW", &Path);
  Patch("CreateActCtxW", &Context);
  Patch("ActivateActCtx", &Activate);
  Patch("DeactivateActCtx", &Deactivate);
  Patch("FindActCtxSectionStringW", &Find);
  Patch("LoadLibraryW", &Load);
  Patch("GetProcAddress", &Lookup);
  Patch("RegisterClassW", &Register);
  Patch("CreateWindowExW", &Window);
  Patch("DestroyIcon", &Destroy);
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

template <typename Function>
void ScriptedPlatform::Patch(const char* name, Function* replacement) {
  patches.push_back(std::make_unique<ImportPatch>(name, replacement));
}
