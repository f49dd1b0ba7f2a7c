#include "commands.h"

#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <utility>

#include "channel.h"
#include "clipboard.h"
#include "item_points.h"
#include "menu_watch.h"
#include "outline_run.h"

namespace demo {
namespace {

constexpr WPARAM SYNC_KEY = VK_F12;
constexpr UINT_PTR IDLE_TIMER = 1;
constexpr UINT IDLE_TIME = 15;  // milliseconds

void Print(const std::string& text) { std::printf("%s\n", text.c_str()); }

void Finish(const char* result) {
  std::printf("%s\n", result);
  std::fflush(stdout);
}

void PrintNames(const std::vector<WideText>& names) {
  for (const WideText& name : names) Print(Utf8(name));
  Finish("ok");
}

// The first word, and in `text` what follows it.
std::string TakeWord(std::string& text) {
  const std::size_t end = text.find(' ');
  const std::string word = text.substr(0, end);
  text = end == std::string::npos ? "" : text.substr(end + 1);
  return word;
}

POINT MiddleOf(HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

std::uint32_t PartFlag(const std::string& part) {
  if (part == "label") return QVLHT_ONITEMLABEL;
  if (part == "icon") return QVLHT_ONITEMICON;
  if (part == "box") return QVLHT_ONITEMSTATEICON;
  if (part == "button") return QVLHT_ONITEMBUTTON;
  return 0;
}

}  // namespace

const Commands::Named Commands::NAMED[] = {
    {"point", &Commands::AnswerPoint},
    {"selection", &Commands::AnswerSelection},
    {"caret", &Commands::AnswerCaret},
    {"ticked", &Commands::AnswerTicked},
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

bool Commands::TakeSyncKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || message.wParam != SYNC_KEY) return false;
  ++syncs;
  Recheck();
  return true;
}

LRESULT Commands::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case CHANNEL_LINE:
      Answer(*std::unique_ptr<std::string>(reinterpret_cast<std::string*>(lParam)));
      return 0;
    case WM_TIMER:
      KillTimer(Window(), IDLE_TIMER);
      Finish("ok");
      return 0;
    case CHANNEL_END:
      AnswerQuit({});
      return 0;
    default:
      return WindowBase::Receive(message, wParam, lParam);
  }
}

void Commands::Answer(const std::string& line) {
  std::string argument = line;
  const std::string name = TakeWord(argument);
  for (const Named& known : NAMED) {
    if (name == known.name) {
      (this->*known.answerer)(argument);
      return;
    }
  }
  Finish("error: no such command");
}

ItemHandle Commands::ItemNamed(const std::string& name) {
  IQVLTreeView& view = browser.Browser().View();
  const std::size_t entry = browser.Model().Find(name);
  ItemHandleList items;
  view.GetItems(&items, true);
  for (const ItemHandle item : items) {
    if (EntryOf(view, item) == entry) return item;
  }
  return -1;
}

std::string Commands::NameOf(ItemHandle item) {
  const auto entry = EntryOf(browser.Browser().View(), item);
  return entry ? browser.Model().RelativeName(*entry) : "none";
}

std::optional<POINT> Commands::FindPoint(const std::string& part, const std::string& name) {
  IQVLTreeView& view = browser.Browser().View();
  if (part == "empty") return PointOnNothing(view);
  if (part == "column") return PointOnColumn(view, std::atoi(name.c_str()));
  if (part == "tool") return browser.Tools().PointOf(name);
  if (part == "drop") return MiddleOf(browser.Drops().Window());
  const ItemHandle item = ItemNamed(name);
  if (item == -1) return std::nullopt;
  return PointOnItem(view, item, PartFlag(part));
}

void Commands::AnswerPoint(const std::string& argument) {
  std::string name = argument;
  const std::string part = TakeWord(name);
  if (const auto point = FindPoint(part, name)) {
    Print(std::to_string(point->x) + " " + std::to_string(point->y));
    Finish("ok");
  } else {
    Finish("error: there is no such point");
  }
}

void Commands::PrintItems(const std::function<bool(ItemHandle)>& wanted) {
  ItemHandleList items;
  browser.Browser().View().GetItems(&items, true);
  for (const ItemHandle item : items) {
    if (wanted(item)) Print(NameOf(item));
  }
  Finish("ok");
}

void Commands::AnswerSelection(const std::string&) {
  PrintItems([this](ItemHandle item) { return browser.Browser().View().IsItemSelected(item); });
}

void Commands::AnswerTicked(const std::string&) {
  PrintItems([this](ItemHandle item) { return browser.Browser().View().IsItemChecked(item); });
}

void Commands::AnswerRows(const std::string&) {
  PrintItems([](ItemHandle) { return true; });
}

void Commands::AnswerCaret(const std::string&) {
  const HWND control = browser.Browser().View().GetControlWindow();
  if (browser.Browser().IsList()) {
    Print(NameOf(SendMessageW(control, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED)));
  } else {
    Print(NameOf(SendMessageW(control, TVM_GETNEXTITEM, TVGN_CARET, 0)));
  }
  Finish("ok");
}

void Commands::AnswerOutline(const std::string&) {
  std::fputs(Outline(browser.Browser().View(), browser.Model()).c_str(), stdout);
  Finish("ok");
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
  AnswerWhen([this, first, text] {
    const auto& lines = browser.Log().Lines();
    for (std::size_t i = first; i < lines.size(); ++i) {
      if (lines[i].text.find(text) != std::string::npos) return true;
    }
    return false;
  });
}

void Commands::AnswerSync(const std::string& argument) {
  const int wanted = std::atoi(argument.c_str());
  AnswerWhen([this, wanted] { return syncs >= wanted; });
}

// Timers come after all painting, and once the thread has been idle what was painted is on the
// screen.
void Commands::AnswerIdle(const std::string&) {
  SetTimer(Window(), IDLE_TIMER, IDLE_TIME, nullptr);
}

void Commands::AnswerMenu(const std::string&) {
  const auto lines = OpenMenu();
  if (!lines) {
    Finish("error: no menu is up");
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
  browser.ShowStatus();
  Print(Utf8(browser.StatusText()));
  Finish("ok");
}

void Commands::AnswerQuit(const std::string&) {
  Finish("ok");
  PostMessageW(browser.Window(), WM_CLOSE, 0, 0);
}

}  // namespace demo
