// Answers the commands that come over the channel, so that a script can find its way about the
// window without knowing its layout. docs/demo.md lists them.
#ifndef DEMO_COMMANDS_H
#define DEMO_COMMANDS_H

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "browser_window.h"
#include "window_base.h"

namespace demo {

class Commands final : public WindowBase {
 public:
  explicit Commands(BrowserWindow& browser) : browser(browser) {}

  // Begins to read commands.
  bool Open();

  // True for the key by which a script learns that all input before it has been handled.
  bool TakeSyncKey(const MSG& message);

 private:
  using Answerer = void (Commands::*)(const std::string& argument);
  struct Named {
    const char* name;
    Answerer answerer;
  };
  static const Named NAMED[];

  LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Answer(const std::string& line);

  void AnswerPoint(const std::string& argument);
  void AnswerSelection(const std::string& argument);
  void AnswerCaret(const std::string& argument);
  void AnswerTicked(const std::string& argument);
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
  void AnswerClient(const std::string& argument);
  void AnswerEditing(const std::string& argument);
  void AnswerStatus(const std::string& argument);
  void AnswerQuit(const std::string& argument);

  std::optional<POINT> FindPoint(const std::string& part, const std::string& name);
  ItemHandle ItemNamed(const std::string& name);
  std::string NameOf(ItemHandle item);
  void PrintItems(const std::function<bool(ItemHandle)>& wanted);
  void AnswerWhen(std::function<bool()> condition);
  void Recheck();

  BrowserWindow& browser;
  std::function<bool()> awaited;  // the answer that is still owed comes when this holds
  int syncs = 0;
};

}  // namespace demo

#endif
