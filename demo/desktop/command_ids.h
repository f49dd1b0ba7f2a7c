// The commands of the tool row and of the keys.
#ifndef DEMO_COMMAND_IDS_H
#define DEMO_COMMAND_IDS_H

#include <array>

namespace demo {

enum class Command : int {
  ExpandAll = 100,
  CollapseAll,
  TickAll,
  UntickAll,
  SelectAll,
  InvertSelection,
  Remove,
  Rename,
  Colours,
  Switch,
};

struct CommandText {
  Command command;
  const wchar_t* label;
  const char* name;  // on the channel
  bool beginsGroup = false;
};

constexpr std::array<CommandText, 10> COMMANDS{{
    {Command::ExpandAll, L"Expand all", "expand"},
    {Command::CollapseAll, L"Collapse all", "collapse"},
    {Command::TickAll, L"Check all", "tick", true},
    {Command::UntickAll, L"Uncheck all", "untick"},
    {Command::SelectAll, L"Select all", "select", true},
    {Command::InvertSelection, L"Invert", "invert"},
    {Command::Remove, L"Delete", "remove", true},
    {Command::Rename, L"Rename", "rename"},
    {Command::Colours, L"Colours", "colours", true},
    {Command::Switch, L"Tree/List", "switch"},
}};

}  // namespace demo

#endif
