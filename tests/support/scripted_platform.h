#pragma once

#include <windows.h>

#include <commctrl.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/import_patch.h"

// Stands between the library and the platform for the calls by which contexts are made and
// activated, functions are looked up, and windows and images are made. A call goes on to the
// platform unless the script says otherwise, and each leaves a line: its own name, or one of
//
//   Activate 0   Activate fake   Deactivate   Find   Lookup ImageList_Remove
//
// It checks by itself what the library passes, that every deactivation belongs to the latest
// activation and that windows and images are only made with a context active. One at a time.
class ScriptedPlatform {
 public:
  ScriptedPlatform();
  ~ScriptedPlatform();

  // The lines since the last Take, oldest first.
  std::vector<std::string> Take();

  // A context that is not the platform's: activating it is only noted.
  static HANDLE FakeContext();

  // What every deactivation leaves as the last error, to be told from what a function left.
  static constexpr DWORD ERROR_OF_DEACTIVATION = 777;

  // Which handle QueryActCtxW answers; the module's own context is kept out by default.
  HANDLE moduleContext = nullptr;
  // The length that GetModuleFileNameW claims; 0 for what the platform says.
  DWORD pathLength = 0;
  // What CreateActCtxW gives if it is not to fail; null for what the platform says.
  HANDLE createdContext = nullptr;
  // Whether the active context redirects the common controls; the platform is not asked.
  bool redirects = false;

  // Calls by their lines that fail, and the error that they leave. Those of images give what
  // `results` says, or 0.
  std::map<std::string, DWORD> failures;
  std::map<std::string, int> results;

  // The numbers that each call for a new list was given.
  std::vector<std::vector<int>> createdLists;

  // The last error at the beginning of each activation and of each DestroyIcon: what the library's
  // call before it left behind.
  std::vector<DWORD> errorsAtActivation;
  std::vector<DWORD> errorsAtDestroyIcon;

  // Activations that have not been undone, the latest last.
  std::vector<HANDLE> active;

  // What Take gives; the replaced calls write it.
  std::vector<std::string> lines;

 private:
  std::vector<std::unique_ptr<ImportPatch>> patches;
};
