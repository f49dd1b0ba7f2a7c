// The demo's window: buttons above, the view on the left, drop pane and log on the right.
#ifndef DEMO_BROWSER_WINDOW_H
#define DEMO_BROWSER_WINDOW_H

#include <windows.h>

#include <string>

#include "browser_view.h"
#include "call_log.h"
#include "command_ids.h"
#include "directory_model.h"
#include "drop_pane.h"
#include "log_pane.h"
#include "tool_row.h"
#include "window_base.h"

namespace demo {

struct Options;

class BrowserWindow final : public WindowBase, private IDesk {
 public:
  BrowserWindow(DirectoryModel& model, CallLog& log);
  ~BrowserWindow() override;

  // Makes the window with the filled view in it, not shown yet.
  bool Create(const Options& options);
  void Show();

  // True if the message was a key of the demo's own, which is done with then.
  bool TranslateKey(MSG& message);

  // Brings the line of counts up to date; for moments when nothing else is to do.
  void ShowStatus();

  // What the line below the view says.
  const std::wstring& StatusText() const { return statusText; }

  // Whether the focus is in a label's edit field, to which all keys belong then.
  bool IsEditingLabel() const;

  BrowserView& Browser() { return browser; }
  DropPane& Drops() { return drops; }
  ToolRow& Tools() { return tools; }
  const DirectoryModel& Model() const { return model; }
  CallLog& Log() { return log; }

 private:
  LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT HandleNotify(NMHDR* record);
  bool CreateParts();
  bool OpenView(bool asList);
  void Arrange();
  void Run(Command command);
  void RefreshLog();
  RECT ViewArea() const;

  void OpenContextMenu(int x, int y, ItemHandle item) override;
  void MakeColumns(HWND listWindow, const RECT& clientRect) override;
  bool AnswerLabelEdit(NMHDR* record, std::uint32_t code) override;
  void SortBy(Column column) override;
  void ShowNotice(const WideText& text) override;

  DirectoryModel& model;
  CallLog& log;
  BrowserView browser;
  ToolRow tools;
  DropPane drops;
  LogPane logPane;
  HWND logTitle = nullptr;
  HWND status = nullptr;
  std::wstring statusText;
  std::wstring counts;
  std::wstring notice;  // shown until the counts change
  HACCEL keys = nullptr;
  bool refreshPosted = false;
};

}  // namespace demo

#endif
