// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/TextFile.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <new>

// Once a game runs evenly, neither a statement nor a frame asks for memory. This program counts every
// request. The three functions are never inlined: g++ would see a free() of what another new gave.

namespace
{

bool counting = false;
long requests = 0;

} // namespace

[[gnu::noinline]] void* operator new(std::size_t size)
{
    requests += counting ? 1 : 0;
    if (void* memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

namespace
{

// Every statement but those that read files, with names and texts that are too long to be kept without
// memory.
constexpr std::string_view evenGame = R"(program{
  classes{
    a-class-with-a-very-long-name-indeed{
      create{
        setspeed me random(1,3)
        setdirection me random(0,359.5)
        destroy me
      }create
      destroy{
        undestroy me
      }destroy
    }a-class-with-a-very-long-name-indeed
    ball{
      normal{
        move me
        rebound me game
        if me.x > 90 {
          unmove me
          changedirection me 90
        }else{
          if keyboard.space != "true" {
            changespeed me 0
          }if
        }if
        moveforward me 1
        moveleft me 1
        moveright me 1
        moveup me 1
        movedown me 1
        movehigher me 1
        movelower me 1
        setposition me me.x me.y random(0,1)
        changeposition me 0.5 -0.5 0
        hide me
        show me
        if me.class = ball {
          set text$colors me.red
          set text$colors me.purple
        }if
        if counter$frame > 5 {
          set counter$frame 0
          setstate the-other-state-of-this-game
        }if
      }normal
      collision{
        change counter$hits 1
        rebound me it
        set counter$it it.x
      }collision
      mapchange{
        set text$map game.map
        set text$map game.background
      }mapchange
    }ball
  }classes
  states{
    begin{
      initialize{
        set counter$hits 0
        set counter$frame 0
        setmap game "colors.map"
        setbackground game "sky.bmp"
        setstate the-other-state-of-this-game
        set text$a "a-text-that-is-longer-than-a-few-letters"
      }initialize
    }begin
    the-state-that-is-left-after-a-while{
      loop{
        change counter$frame 1
        set counter$frame counter$frame
        set text$a "a-text-that-is-longer-than-a-few-letters"
        set text$b text$a
        if text$a <= text$b {
          if "a-text-that-is-longer" < text$b {
            if counter$frame = 3 {
              pause
            }if
          }if
        }if
      }loop
    }the-state-that-is-left-after-a-while
    the-other-state-of-this-game{
      loop{
        set counter$share random(0.5,1.5)
        destroyall
        create ball "tag" "flip" 45 3 0 0 0
        create ball "a-tag-that-is-longer-than-a-few-letters" "dial" 45 3 30 0 0
        create ball a-class-with-a-very-long-name-indeed "dial" 45 3 40 0 0
        create a-class-with-a-very-long-name-indeed text$a "dot" 135 3 0 30 0
        setstate the-state-that-is-left-after-a-while
      }loop
    }the-other-state-of-this-game
  }states
}program
)";

/// Takes the lines of a trace and keeps the last few.
class Ring
{
public:
    void take(std::string_view line)
    {
        m_lines[m_count++ % m_lines.size()].assign(line); // long enough for every line
    }
    Ring()
    {
        for (std::string& line : m_lines)
            line.reserve(200);
    }
    std::size_t count() const { return m_count; }

private:
    std::array<std::string, 64> m_lines;
    std::size_t m_count = 0;
};

} // namespace

TEST(Allocation, AnEvenGameAsksForNoMemory)
{
    for (const bool traced : {false, true}) {
        SCOPED_TRACE(traced ? "traced" : "not traced");
        const TestGame files;
        Ring ring;
        ZB module;
        module.GamesFolder = "";
        const Installation installation(files.folder.path());
        PictureFiles pictures;
        HeadlessPlayer player(module, installation, pictures,
                              [&ring](std::string_view line) { ring.take(line); });
        HeadlessOptions options;
        options.frames = 400;
        options.trace = traced;
        options.boxes = {traced, traced, traced};
        options.wantsPicture = options.showMap = true;
        ASSERT_EQ(player.run(withProductLineEnds(std::string(evenGame)), options, {}),
                  HeadlessPlayer::Result::AllFrames);

        const std::size_t linesBefore = ring.count();
        requests = 0;
        counting = true;
        for (int frame = 0; frame < 400; ++frame)
            player.playFrame();
        counting = false;
        EXPECT_EQ(requests, 0);
        EXPECT_EQ(ring.count() > linesBefore + 1000, traced);
        EXPECT_TRUE(player.interpreter().context().InterpreterRunning());
        EXPECT_GT(player.interpreter().context().DumpVariablesInto().size(), 9U); // there are sprites
    }
}
