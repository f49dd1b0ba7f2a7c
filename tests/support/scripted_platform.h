#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/import_patch.h"

// Stands between the library and the platform for the calls by which contexts are made and
// activated, functions are looked up, and windows and images are made. A call goes on to the
// platform unless the script answers it, and each leaves a line: its own name, or one of
//
//   Activate 0   Activate fake   Deactivate   Find   Lookup ImageList_Remove
//
// Activations and searches for redirections are only noted. It checks by itself what the library
// passes, that every deactivation belongs to the latest activation and that windows and images are
// only made with a context active. One at a time.
class ScriptedPlatform {
 public:
  ScriptedPlatform();
  ~ScriptedPlatform();

  // The lines since the last Take, oldest first; errorsAt is then about these calls.
  std::vector<std::string> Take();

  // A context that is not the platform's.
  static constexpr LONG_PTR FAKE_CONTEXT = 0x7A00;

  // What every deactivation leaves as the last error, to be told from what a function left.
  static constexpr DWORD ERROR_OF_DEACTIVATION = 777;

  // What calls are answered in the platform's place, by their lines. QueryActCtxW, like
  // CreateActCtxW, gives a context or -1; null if there is no answer.
  struct Answer {
    DWORD error = 0;
    LONG_PTR result = 0;
  };
  std::map<std::string, Answer> answers;

  // The last error at the beginning of each call of a line: what the library's call before it left
  // behind.
  std::map<std::string, std::vector<DWORD>> errorsAt;

  // Activations that have not been undone.
  ULONG_PTR active = 0;

  // What Take gives; the replaced calls write it.
  std::vector<std::string> lines;
  std::map<std::string, std::vector<DWORD>> errors;

 private:
  std::vector<std::unique_ptr<ImportPatch>> patches;
};
