#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/KeySequences.h"
#include "platform/HotKeys.h"
#include "platform/x11/X11Input.h"

namespace tolv::x11 {
namespace {

using Kind = InputStep::Kind;
using ::testing::ElementsAre;

constexpr uint32_t kF = 0x66;
constexpr uint32_t kW = 0x77;
constexpr uint32_t kShiftL = 0xffe1;
constexpr uint32_t kSuperL = 0xffeb;
constexpr uint32_t kReturn = 0xff0d;

TEST(InterpretKeyEvents, TheFullScreenSequenceBecomesOneToggle) {
  EXPECT_THAT(*interpretKeyEvents(fullScreenToggleKeys()),
              ElementsAre(InputStep{Kind::ToggleFullScreen, 0, true}));
}

TEST(InterpretKeyEvents, FWithoutTheFunctionKeyHeldIsAPlainKey) {
  auto steps = interpretKeyEvents({{posted_key::F, event_flag::SecondaryFn, true},
                                   {posted_key::F, event_flag::SecondaryFn, false}});
  EXPECT_THAT(*steps, ElementsAre(InputStep{Kind::Key, kF, true}, InputStep{Kind::Key, kF, false}));
}

TEST(InterpretKeyEvents, CommandWClosesAndItsReleaseDoesNothing) {
  EXPECT_THAT(
      *interpretKeyEvents({{posted_key::W, event_flag::Command, true}, {posted_key::W, 0, false}}),
      ElementsAre(InputStep{Kind::CloseActiveWindow, 0, true}));
}

TEST(InterpretKeyEvents, ModifiersWrapTheirKeyAndComeUpInReverse) {
  auto steps =
      interpretKeyEvents({{key_code::Return, event_flag::Shift | event_flag::Command, true},
                          {key_code::Return, 0, false}});
  EXPECT_THAT(
      *steps,
      ElementsAre(InputStep{Kind::Key, kShiftL, true}, InputStep{Kind::Key, kSuperL, true},
                  InputStep{Kind::Key, kReturn, true}, InputStep{Kind::Key, kReturn, false},
                  InputStep{Kind::Key, kSuperL, false}, InputStep{Kind::Key, kShiftL, false}));
}

TEST(InterpretKeyEvents, KeysLeftDownComeUpAtTheEnd) {
  auto steps = interpretKeyEvents({{posted_key::W, 0, true}});
  EXPECT_THAT(*steps, ElementsAre(InputStep{Kind::Key, kW, true}, InputStep{Kind::Key, kW, false}));
}

TEST(InterpretKeyEvents, AKeyWithoutAnXEquivalentRefusesTheWholeSequence) {
  EXPECT_FALSE(interpretKeyEvents({{posted_key::W, 0, true}, {200, 0, true}}).has_value());
}

}  // namespace
}  // namespace tolv::x11
