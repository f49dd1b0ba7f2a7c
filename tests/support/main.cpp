#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

// Initialises the platform as every host does before it creates a view.
int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES};
  if (!InitCommonControlsEx(&controls) || FAILED(OleInitialize(nullptr))) {
    return 2;
  }
  const int result = RUN_ALL_TESTS();
  OleUninitialize();
  return result;
}
