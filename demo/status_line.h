// The line of counts below the view.
#pragma once

#include <windows.h>

#include <string>

#include "directory_model.h"
#include "qvl_host.h"

namespace demo {

class StatusLine {
 public:
  bool Create(HWND parent);
  void Move(const RECT& area);

  // Brings the counts up to date. For moments without input, because it asks about every item.
  void Update(const DirectoryModel& model, IQVLTreeView& view);

  // Shows a text until the counts change.
  void SetNotice(const std::wstring& text) { notice = text; }

  const std::wstring& Text() const { return shown; }

 private:
  HWND label = nullptr;
  std::wstring shown;
  std::wstring counts;
  std::wstring notice;
};

}  // namespace demo
