#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "qvl.h"
#include "support/recording_client.h"

// Lets the thread's queued messages be handled, until none is left.
void PumpMessages();

// What a host has around a view: a window of its own, shown, a client, and a view that the test
// creates with the style it wants. Everything ends with the test.
class HostTest : public ::testing::Test {
 protected:
  static constexpr int CONTROL_ID = 100;
  static constexpr int WIDTH = 300;
  static constexpr int HEIGHT = 400;

  void SetUp() override;
  void TearDown() override;

  // Creates the control in the whole of the host window, with `client` listening.
  HWND CreateView(std::uint32_t style = 0, QVLTreeViewStyleExt* styleExt = nullptr);

  // Inserts an item of that name, under which the client's lines then name it.
  ItemHandle Insert(const WCHAR* name, ItemHandle parent = -1);

  // Ends the view before the test ends.
  void ReleaseView();

  HWND host = nullptr;
  IQVLTreeView* view = nullptr;
  RecordingClient client;
};
