// What the client was called for, line by line, for the pane, a file or a test.
#ifndef DEMO_CALL_LOG_H
#define DEMO_CALL_LOG_H

#include <cstddef>
#include <cstdio>
#include <filesystem>
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
  // Writes every further line to that file too, or with "-" to the standard output. False if the
  // file can't be made.
  bool WriteTo(const std::filesystem::path& file);

  void Add(const std::string& text, int depth = 0);

  const std::vector<LogLine>& Lines() const { return lines; }

  // Called after each new line, until the log ends or forgets its listeners.
  void AddListener(std::function<void()> listener) { listeners.push_back(std::move(listener)); }
  void ForgetListeners() { listeners.clear(); }

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const {
      if (file != stdout) std::fclose(file);
    }
  };

  std::vector<LogLine> lines;
  std::unique_ptr<std::FILE, CloseFile> output;
  std::vector<std::function<void()>> listeners;
};

}  // namespace demo

#endif
