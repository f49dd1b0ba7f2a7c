// The demo's window: buttons above, the view on the left, drop pane and log on the right.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "browser_view.h"
#include "call_log.h"
#include "command_ids.h"
#include "directory_model.h"
#include "directory_watch.h"
#include "drop_pane.h"
#include "log_pane.h"
#include "splitter.h"
#include "status_line.h"
#include "tool_row.h"
#include "window_base.h"

namespace demo {

struct Options;

class BrowserWindow final : public WindowBase, private IReactions {
 public:
  BrowserWindow(DirectoryModel& shownModel, CallLog& callLog);
  ~BrowserWindow() override;

  // Makes the window with the filled view in it, hidden.
  bool Create(const Options& options);
  void Show();

  // True for a key of the demo itself, which is handled then and must not be dispatched.
  bool TranslateKey(MSG& message);

  // Brings the status line up to date. For moments without input.
  void UpdateStatus() { status.Update(model, browser.View()); }

  const std::wstring& StatusText() const { return status.Text(); }

  // Whether the focus is in a label's edit control, which gets all keys then.
  bool IsEditingLabel() const;

  BrowserView& Browser() { return browser; }
  DropPane& Drops() { return drops; }
  ToolRow& Tools() { return tools; }
  const Splitter& PaneSplitter() const { return splitter; }
  const DirectoryModel& Model() const { return model; }
  CallLog& Log() { return log; }

 private:
  LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT HandleNotify(NMHDR* record);
  void HandleTimer(WPARAM timer);
  void FollowDisk();
  bool CreateParts();
  bool OpenView(bool asList);
  void Arrange();
  void MoveSplitter(int x);
  void Run(Command command);
  void RunOnView(Command command);
  void RequestLogRefresh();
  void ShowMenu(POINT screenPoint);
  RECT ViewArea() const;

  void OpenContextMenu(int x, int y, ItemHandle item) override;
  void MakeColumns(HWND listWindow) override;
  bool AnswerLabelEdit(const qvl::LabelEdit& edit) override;
  void SortBy(Column column) override;
  void ShowNotice(const std::wstring& text) override;

  DirectoryModel& model;
  CallLog& log;
  BrowserView browser;
  ToolRow tools;
  DropPane drops;
  LogPane logPane;
  Splitter splitter;
  StatusLine status;
  DirectoryWatch watch;
  std::unique_ptr<DirectoryModel> latest;  // a reading that the view does not show yet
  HWND logTitle = nullptr;
  HACCEL keys = nullptr;
  double viewShare = 0.55;  // of the width
  bool isRefreshPending = false;
};

}  // namespace demo
