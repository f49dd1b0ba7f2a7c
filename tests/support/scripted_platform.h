#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/import_patch.h"

// Replaces the platform calls that find, create and activate contexts, look functions up, and
// create windows and images. A call goes on to the platform unless the script has an answer for it.
// Each leaves a line: its own name, or one of
//
//   Activate 0   Activate fake   Deactivate   Find   Lookup ImageList_Remove
//
// Activations and searches for redirections are only logged. It checks the library's arguments,
// that every deactivation belongs to the latest activation, and that windows and images are created
// only while a context is active. One object at a time.
class ScriptedPlatform {
 public:
  ScriptedPlatform();
  ~ScriptedPlatform();

  // The lines since the last Take, oldest first; errorsAt is then about these calls.
  std::vector<std::string> Take();

  // A context that is not the platform's.
  static constexpr LONG_PTR kFakeContext = 0x7A00;

  // The last error after every deactivation, different from those of the functions.
  static constexpr DWORD kErrorOfDeactivation = 777;

  // The script's answers, by the lines of the calls. QueryActCtxW, like CreateActCtxW, gives a
  // context or -1, and null without an answer.
  struct Answer {
    DWORD error = 0;
    LONG_PTR result = 0;
  };
  std::map<std::string, Answer> answers;

  // The last error at the beginning of each call of a line.
  std::map<std::string, std::vector<DWORD>> errorsAt;

  // Activations that have not been undone.
  ULONG_PTR active = 0;

  // The results of the next Take; the replaced calls write them.
  std::vector<std::string> lines;
  std::map<std::string, std::vector<DWORD>> errors;

 private:
  std::vector<std::unique_ptr<ImportPatch>> patches;
};
