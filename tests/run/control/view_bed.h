#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "tests/run/control/form1_bench.h"

namespace tolvane {

/// A page of ten digits in a program that waits for its user.
class ViewBed : public testing::Test {
 protected:
  ViewBed() {
    bench_.Start();
    view_.Text(u"0123456789");
  }
  void Select(std::int32_t start, std::int32_t length) {
    view_.SelStart(start);
    view_.SelLength(length);
    bench_.form.RTB_MainView_SelChange();
  }

  Form1Bench bench_;
  platform::memory::RichTextView& view_ = bench_.memory.RTB_MainView;
  platform::memory::Clipboard& clipboard_ = bench_.memory.clipboard;
};

}  // namespace tolvane
