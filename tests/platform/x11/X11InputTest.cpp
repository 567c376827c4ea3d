#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/HotKeys.h"
#include "platform/x11/X11Input.h"

namespace tolv::x11 {
namespace {

using ::testing::ElementsAre;

constexpr uint32_t kF = 0x66;
constexpr uint32_t kW = 0x77;
constexpr uint32_t kShiftL = 0xffe1;
constexpr uint32_t kSuperL = 0xffeb;
constexpr uint32_t kReturn = 0xff0d;

TEST(KeyStrokes, TheFunctionKeyAndItsFlagArePassedOver) {
  auto strokes = keyStrokesOf({{posted_key::Function, event_flag::SecondaryFn, true},
                               {posted_key::F, event_flag::SecondaryFn, true},
                               {posted_key::F, event_flag::SecondaryFn, false},
                               {posted_key::Function, 0, false}});
  EXPECT_THAT(*strokes, ElementsAre(KeyStroke{kF, true}, KeyStroke{kF, false}));
}

TEST(KeyStrokes, CommandIsTheSuperKeyAroundItsKey) {
  EXPECT_THAT(*keyStrokesOf({{posted_key::W, event_flag::Command, true},
                             {posted_key::W, event_flag::Command, false}}),
              ElementsAre(KeyStroke{kSuperL, true}, KeyStroke{kW, true}, KeyStroke{kW, false},
                          KeyStroke{kSuperL, false}));
}

TEST(KeyStrokes, ModifiersWrapTheirKeyAndComeUpInReverse) {
  auto strokes = keyStrokesOf({{key_code::Return, event_flag::Shift | event_flag::Command, true},
                               {key_code::Return, 0, false}});
  EXPECT_THAT(*strokes, ElementsAre(KeyStroke{kShiftL, true}, KeyStroke{kSuperL, true},
                                    KeyStroke{kReturn, true}, KeyStroke{kReturn, false},
                                    KeyStroke{kSuperL, false}, KeyStroke{kShiftL, false}));
}

TEST(KeyStrokes, KeysLeftDownComeUpAtTheEnd) {
  auto strokes = keyStrokesOf({{posted_key::W, 0, true}});
  EXPECT_THAT(*strokes, ElementsAre(KeyStroke{kW, true}, KeyStroke{kW, false}));
}

TEST(KeyStrokes, AKeyWithoutAnXEquivalentRefusesTheWholeSequence) {
  EXPECT_FALSE(keyStrokesOf({{posted_key::W, 0, true}, {200, 0, true}}).has_value());
}

}  // namespace
}  // namespace tolv::x11
