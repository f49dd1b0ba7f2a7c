#include "commands.h"

#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <utility>

#include "channel.h"
#include "clipboard.h"
#include "menu_watch.h"
#include "screen_points.h"
#include "text.h"

namespace demo {
namespace {

constexpr WPARAM kSyncKey = VK_F12;
constexpr UINT_PTR kIdleTimer = 1;
constexpr UINT kIdleTime = 15;  // milliseconds

void PrintNames(const std::vector<std::wstring>& names) {
  for (const std::wstring& name : names) Print(Utf8(name));
  Finish("ok");
}

// The first word, and in `text` what follows it.
std::string TakeWord(std::string& text) {
  const std::size_t end = text.find(' ');
  std::string word = text.substr(0, end);
  text = end == std::string::npos ? "" : text.substr(end + 1);
  return word;
}

}  // namespace

const Commands::Named Commands::kNamed[] = {
    {"point", &Commands::AnswerPoint},
    {"selection", &Commands::AnswerSelection},
    {"caret", &Commands::AnswerCaret},
    {"checked", &Commands::AnswerChecked},
    {"rows", &Commands::AnswerRows},
    {"outline", &Commands::AnswerOutline},
    {"log", &Commands::AnswerLog},
    {"count", &Commands::AnswerCount},
    {"await", &Commands::AnswerAwait},
    {"sync", &Commands::AnswerSync},
    {"idle", &Commands::AnswerIdle},
    {"menu", &Commands::AnswerMenu},
    {"dropped", &Commands::AnswerDropped},
    {"clipboard", &Commands::AnswerClipboard},
    {"empty-clipboard", &Commands::AnswerEmptyClipboard},
    {"label-visible", &Commands::AnswerLabelVisible},
    {"top", &Commands::AnswerTop},
    {"columns", &Commands::AnswerColumns},
    {"client", &Commands::AnswerClient},
    {"editing", &Commands::AnswerEditing},
    {"status", &Commands::AnswerStatus},
    {"quit", &Commands::AnswerQuit},
};

bool Commands::Open() {
  WindowPlan plan;
  plan.className = L"QVLDemoCommands";
  plan.style = 0;
  plan.parent = HWND_MESSAGE;
  if (!CreateFrom(plan)) return false;
  browser.Log().AddListener([this] { Recheck(); });
  StartChannel(Window());
  return true;
}

bool Commands::HandleSyncKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || message.wParam != kSyncKey) return false;
  ++syncs;
  Recheck();
  return true;
}

LRESULT Commands::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case kChannelLine:
      Answer(*std::unique_ptr<std::string>(reinterpret_cast<std::string*>(lParam)));
      return 0;
    case WM_TIMER:
      KillTimer(Window(), kIdleTimer);
      Finish("ok");
      return 0;
    case kChannelEnd:
      AnswerQuit({});
      return 0;
    default:
      return WindowBase::Receive(message, wParam, lParam);
  }
}

void Commands::Answer(const std::string& line) {
  std::string argument = line;
  const std::string name = TakeWord(argument);
  for (const Named& known : kNamed) {
    if (name == known.name) {
      (this->*known.answer)(argument);
      return;
    }
  }
  Finish("error: no such command");
}

void Commands::AnswerPoint(const std::string& argument) {
  std::string name = argument;
  const std::string part = TakeWord(name);
  if (const auto point = FindPoint(browser, part, name)) {
    Print(std::to_string(point->x) + " " + std::to_string(point->y));
    Finish("ok");
  } else {
    Finish("error: there is no such point");
  }
}

void Commands::AnswerLog(const std::string& argument) {
  const auto& lines = browser.Log().Lines();
  for (auto i = static_cast<std::size_t>(std::atoi(argument.c_str())); i < lines.size(); ++i) {
    Print(lines[i].text);
  }
  Finish("ok");
}

void Commands::AnswerCount(const std::string&) {
  Print(std::to_string(browser.Log().Lines().size()));
  Finish("ok");
}

void Commands::AnswerWhen(std::function<bool()> condition) {
  awaited = std::move(condition);
  Recheck();
}

void Commands::Recheck() {
  if (!awaited || !awaited()) return;
  awaited = nullptr;
  Finish("ok");
}

void Commands::AnswerAwait(const std::string& argument) {
  std::string text = argument;
  const auto first = static_cast<std::size_t>(std::atoi(TakeWord(text).c_str()));
  AnswerWhen([this, next = first, text]() mutable {
    const auto& lines = browser.Log().Lines();
    while (next < lines.size()) {
      if (lines[next++].text.find(text) != std::string::npos) return true;
    }
    return false;
  });
}

void Commands::AnswerSync(const std::string& argument) {
  const int wanted = std::atoi(argument.c_str());
  AnswerWhen([this, wanted] { return syncs >= wanted; });
}

// Timers come after all painting, and an idle thread has brought what it painted to the screen.
void Commands::AnswerIdle(const std::string&) {
  SetTimer(Window(), kIdleTimer, kIdleTime, nullptr);
}

void Commands::AnswerMenu(const std::string&) {
  const auto lines = OpenMenu();
  if (!lines) {
    Finish("error: no menu is open");
    return;
  }
  for (const std::string& line : *lines) Print(line);
  Finish("ok");
}

void Commands::AnswerDropped(const std::string&) { PrintNames(browser.Drops().Dropped()); }

void Commands::AnswerClipboard(const std::string&) { PrintNames(ClipboardFiles(browser.Window())); }

void Commands::AnswerEmptyClipboard(const std::string&) {
  const bool emptied = EmptyTheClipboard(browser.Window());
  Finish(emptied ? "ok" : "error: the clipboard is in use");
}

void Commands::AnswerClient(const std::string&) {
  RECT area{};
  GetClientRect(browser.Window(), &area);
  POINT corner{0, 0};
  ClientToScreen(browser.Window(), &corner);
  Print(std::to_string(corner.x) + " " + std::to_string(corner.y) + " " +
        std::to_string(area.right) + " " + std::to_string(area.bottom));
  Finish("ok");
}

void Commands::AnswerEditing(const std::string&) {
  Finish(browser.IsEditingLabel() ? "ok" : "error: no label is being edited");
}

void Commands::AnswerStatus(const std::string&) {
  browser.UpdateStatus();
  Print(Utf8(browser.StatusText()));
  Finish("ok");
}

void Commands::AnswerQuit(const std::string&) {
  Finish("ok");
  PostMessageW(browser.Window(), WM_CLOSE, 0, 0);
}

}  // namespace demo
