// A native control in a window that counts the control's notifications.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>

#include "side.h"

class BareControl : public Side {
 public:
  HWND Control() const override { return control; }
  ~BareControl() override;

 protected:
  // Creates the window at `place`, and the control in its whole area.
  BareControl(bool icons, const wchar_t* className, DWORD style, HWND host, const RECT& place);

  LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(control, message, wParam, lParam);
  }
  template <class Record>
  LRESULT SendRecord(UINT message, WPARAM wParam, Record& record) const {
    return Send(message, wParam, reinterpret_cast<LPARAM>(&record));
  }

  // The system's list of small icons, and the index of a file's icon in it.
  HIMAGELIST SystemIcons() const;
  int IconOf(const wchar_t* fileName) const;

  void SuspendDrawing() const { Send(WM_SETREDRAW, FALSE, 0); }
  void ResumeDrawing() const {
    Send(WM_SETREDRAW, TRUE, 0);
    InvalidateRect(control, nullptr, TRUE);
  }

  // Suspends drawing from the ninth change on, as the library does.
  class Pause {
   public:
    explicit Pause(const BareControl& paused) : control(paused) {}
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;
    ~Pause() {
      if (changes > kUnpausedChanges) control.ResumeDrawing();
    }
    void BeforeChange() {
      if (changes++ == kUnpausedChanges) control.SuspendDrawing();
    }

   private:
    static constexpr int kUnpausedChanges = 8;

    const BareControl& control;
    int changes = 0;
  };

  const bool icons;

 private:
  static LRESULT CALLBACK Count(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND parent = nullptr;
  HWND control = nullptr;
};
