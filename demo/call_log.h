// What the client is called for, line by line, for the pane, a file or a test.
#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace demo {

struct LogLine {
  std::string text;  // UTF-8
  int depth = 0;     // open selection brackets around the call
};

class CallLog {
 public:
  // Also writes every further line to that file, or with "-" to the standard output. False if the
  // file cannot be made.
  bool WriteTo(const std::wstring& file);

  void Add(const std::string& text, int depth = 0);

  // Brings what is written so far to the file. Lines are collected until then, because a write for
  // each line would slow down a change of many items.
  void Flush();

  const std::vector<LogLine>& Lines() const { return lines; }

  // Calls `listener` after each new line until ForgetListeners.
  void AddListener(std::function<void()> listener) { listeners.push_back(std::move(listener)); }
  void ForgetListeners() { listeners.clear(); }

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const {
      if (file == stdout) {
        std::fflush(file);
      } else {
        std::fclose(file);
      }
    }
  };

  std::vector<LogLine> lines;
  std::unique_ptr<std::FILE, CloseFile> output;
  std::vector<std::function<void()>> listeners;
};

}  // namespace demo
