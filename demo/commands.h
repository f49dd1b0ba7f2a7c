// Answers the commands of the channel, with which a script uses the window without knowing its
// layout. docs/demo.md lists them.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "browser_window.h"
#include "window_base.h"

namespace demo {

class Commands final : public WindowBase {
 public:
  explicit Commands(BrowserWindow& browserWindow) : browser(browserWindow) {}

  // Starts to read commands.
  bool Open();

  // True for the key that follows the input of a script: all input before it has been handled.
  bool HandleSyncKey(const MSG& message);

 private:
  using Answerer = void (Commands::*)(const std::string& argument);
  struct Named {
    const char* name;
    Answerer answer;
  };
  static const Named kNamed[];

  LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Answer(const std::string& line);

  void AnswerPoint(const std::string& argument);
  void AnswerSelection(const std::string& argument);
  void AnswerCaret(const std::string& argument);
  void AnswerChecked(const std::string& argument);
  void AnswerRows(const std::string& argument);
  void AnswerOutline(const std::string& argument);
  void AnswerLog(const std::string& argument);
  void AnswerCount(const std::string& argument);
  void AnswerAwait(const std::string& argument);
  void AnswerSync(const std::string& argument);
  void AnswerIdle(const std::string& argument);
  void AnswerMenu(const std::string& argument);
  void AnswerDropped(const std::string& argument);
  void AnswerClipboard(const std::string& argument);
  void AnswerEmptyClipboard(const std::string& argument);
  void AnswerLabelVisible(const std::string& argument);
  void AnswerTop(const std::string& argument);
  void AnswerColumns(const std::string& argument);
  void AnswerClient(const std::string& argument);
  void AnswerEditing(const std::string& argument);
  void AnswerStatus(const std::string& argument);
  void AnswerQuit(const std::string& argument);

  std::string NameOf(ItemHandle item);
  void PrintItems(const std::function<bool(ItemHandle)>& wanted);
  void AnswerWhen(std::function<bool()> condition);
  void Recheck();

  BrowserWindow& browser;
  std::function<bool()> awaited;  // the condition of the pending answer
  int syncs = 0;
};

}  // namespace demo
