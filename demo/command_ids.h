// The commands of the tool row and of the keys.
#pragma once

#include <windows.h>

#include <array>

namespace demo {

enum class Command : WORD {
  ExpandAll = 100,
  CollapseAll,
  CheckAll,
  UncheckAll,
  SelectAll,
  InvertSelection,
  Remove,
  Rename,
  Colors,
  Switch,
};

struct CommandText {
  Command command;
  const wchar_t* label;
  const char* name;  // on the channel
  BYTE modifier;     // of the key
  WORD key;
  bool beginsGroup = false;
};

constexpr std::array<CommandText, 10> kCommands{{
    {Command::ExpandAll, L"Expand all", "expand", FCONTROL, 'E'},
    {Command::CollapseAll, L"Collapse all", "collapse", FCONTROL, 'W'},
    {Command::CheckAll, L"Check all", "check", FCONTROL, 'T', true},
    {Command::UncheckAll, L"Uncheck all", "uncheck", FCONTROL, 'U'},
    {Command::SelectAll, L"Select all", "select", FCONTROL, 'A', true},
    {Command::InvertSelection, L"Invert", "invert", FCONTROL, 'I'},
    {Command::Remove, L"Delete", "remove", 0, VK_DELETE, true},
    {Command::Rename, L"Rename", "rename", 0, VK_F2},
    {Command::Colors, L"Colors", "colors", 0, VK_F4, true},
    {Command::Switch, L"Tree/List", "switch", 0, VK_F6},
}};

inline HACCEL MakeKeys() {
  std::array<ACCEL, kCommands.size()> keys{};
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const CommandText& each = kCommands[i];
    keys[i] = {static_cast<BYTE>(FVIRTKEY | each.modifier), each.key,
               static_cast<WORD>(each.command)};
  }
  return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

}  // namespace demo
