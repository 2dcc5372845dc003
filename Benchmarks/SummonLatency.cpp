// SPDX-License-Identifier: MIT
//
// Measures from outside, on a quiet display, how long a program takes from a key press to its first
// changed pixel in the middle of the screen. Several programs are measured in turn within each
// round, so that other work on the machine burdens all alike.
//
//   SummonLatency [--rounds N] [--warm-up N] [--type KEY]
//                 (NAME=CHORD | NAME=run:COMMAND | NAME=toggle:COMMAND)...
//
// Each chord must show a window over the middle of the screen, and hide it again. A command, which
// the shell runs as a desktop's own shortcut would, must show one that Escape hides, or, with
// "toggle", that hides when the command runs again. With --type,
// what is measured is that key in the window that is shown. Rounds to warm up (3) are not counted.
// Prints NAME, median, 95th percentile and maximum in milliseconds, and the number of rounds
// without an answer, separated by tabs.

#include "KeyPresser.h"
#include "ScreenWatch.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>
#include <cstdio>
#include <memory>
#include <spawn.h>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <unistd.h>
#include <xcb/xtest.h>

using namespace std::chrono_literals;
using namespace Tavik::Benchmarks;

namespace {

// The ring opens with a dot in its middle, so a small square sees the first frame and costs little
// to look at; a keystroke may change any part of the ring.
constexpr std::uint16_t summonSide = 64;
constexpr std::uint16_t ringSide = 352;
// Longer than the opening animation, after which a second press hides the window.
constexpr auto settlingTime = 600ms;
constexpr auto patience = 2000ms;

struct Target
{
    std::string name;
    KeyPresser::Chord chord; ///< What shows it, unless a command does, and what hides it.
    std::string command;
    bool isHiddenByCommand = false;
    std::vector<double> milliseconds;
    int missed = 0;
};

struct Options
{
    int rounds = 30;
    int warmUpRounds = 3;
    std::optional<KeyPresser::Chord> typedKey;
    std::vector<Target> targets;
};

std::optional<Target> parseTarget(std::string_view argument, const KeyPresser& presser)
{
    constexpr std::string_view commandPrefix = "run:";
    constexpr std::string_view togglePrefix = "toggle:";
    const auto separator = argument.find('=');
    if (separator == std::string_view::npos) {
        return std::nullopt;
    }
    Target target{.name = std::string(argument.substr(0, separator)),
                  .chord = {},
                  .command = {},
                  .milliseconds = {}};
    auto how = argument.substr(separator + 1);
    if (how.starts_with(togglePrefix)) {
        target.command = how.substr(togglePrefix.size());
        target.isHiddenByCommand = true;
        return target;
    }
    if (how.starts_with(commandPrefix)) {
        target.command = how.substr(commandPrefix.size());
        how = "Escape";
    }
    const auto chord = presser.chord(how);
    if (!chord) {
        return std::nullopt;
    }
    target.chord = *chord;
    return target;
}

void run(const std::string& command)
{
    std::string shell = "sh";
    std::string option = "-c";
    std::string words = command;
    const std::array<char*, 4> arguments{shell.data(), option.data(), words.data(), nullptr};
    pid_t process = 0;
    if (::posix_spawn(&process, "/bin/sh", nullptr, nullptr, arguments.data(), environ) != 0) {
        std::fprintf(stderr, "%s cannot be run\n", command.c_str());
    }
}

std::optional<Options> parse(const std::vector<std::string_view>& arguments,
                             const KeyPresser& presser)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto argument = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if ((argument == "--rounds" || argument == "--warm-up") && hasValue) {
            int& count = argument == "--rounds" ? options.rounds : options.warmUpRounds;
            const auto value = arguments[++i];
            std::from_chars(value.data(), value.data() + value.size(), count);
        } else if (argument == "--type" && hasValue) {
            options.typedKey = presser.chord(arguments[++i]);
            if (!options.typedKey) {
                return std::nullopt;
            }
        } else {
            auto target = parseTarget(argument, presser);
            if (!target) {
                return std::nullopt;
            }
            options.targets.push_back(*std::move(target));
        }
    }
    return options.rounds > 0 && !options.targets.empty() ? std::optional(options) : std::nullopt;
}

class Stopwatch
{
public:
    Stopwatch(KeyPresser& presser, ScreenWatch& screen)
        : m_presser(presser)
        , m_screen(screen)
    { }

    /// Milliseconds from pressing the chord to the first changed pixel in the area.
    std::optional<double> time(const KeyPresser::Chord& chord, const ScreenWatch::Area& area)
    {
        m_presser.holdModifiers(chord);
        const auto result = time([&] { m_presser.pressKey(chord); }, area);
        m_presser.release(chord);
        return result;
    }
    /// The same from whatever is done instead.
    template <typename Action>
    requires std::invocable<Action> std::optional<double> time(Action act,
                                                               const ScreenWatch::Area& area)
    {
        const auto before = m_screen.pixels(area);
        std::this_thread::sleep_for(20ms);
        m_screen.forget();
        const auto start = ScreenWatch::Clock::now();
        act();
        const auto end = m_screen.waitForChange(area, before, patience);
        if (!end) {
            return std::nullopt;
        }
        return std::chrono::duration<double, std::milli>(*end - start).count();
    }

private:
    KeyPresser& m_presser;
    ScreenWatch& m_screen;
};

void note(Target& target, std::optional<double> milliseconds, bool isWarmUp)
{
    if (isWarmUp) {
        return;
    }
    if (milliseconds) {
        target.milliseconds.push_back(*milliseconds);
    } else {
        ++target.missed;
    }
}

void measureOnce(
    Target& target, const Options& options, KeyPresser& presser, ScreenWatch& screen, bool isWarmUp)
{
    const auto wholeArea = screen.middle(ringSide);
    const auto quiet = screen.pixels(wholeArea);
    Stopwatch stopwatch(presser, screen);

    const auto spot = screen.middle(summonSide);
    auto result = target.command.empty() ? stopwatch.time(target.chord, spot)
                                         : stopwatch.time([&] { run(target.command); }, spot);
    std::this_thread::sleep_for(settlingTime);
    if (options.typedKey) {
        result = stopwatch.time(*options.typedKey, wholeArea);
        std::this_thread::sleep_for(settlingTime);
    }
    note(target, result, isWarmUp);

    if (target.isHiddenByCommand) {
        run(target.command);
    } else {
        presser.strike(target.chord);
    }
    if (!screen.waitForLook(wholeArea, quiet, patience)) {
        std::fprintf(stderr, "%s did not hide\n", target.name.c_str());
    }
    // A little longer each round, so that no round keeps step with the compositor.
    std::this_thread::sleep_for(100ms + 3ms * (target.milliseconds.size() % 7));
}

void print(Target& target)
{
    auto& sorted = target.milliseconds;
    if (sorted.empty()) {
        std::printf("%s\t-\t-\t-\t%d\n", target.name.c_str(), target.missed);
        return;
    }
    std::ranges::sort(sorted);
    const auto at = [&](std::size_t percent) {
        return sorted[(sorted.size() - 1) * percent / 100];
    };
    std::printf(
        "%s\t%.2f\t%.2f\t%.2f\t%d\n", target.name.c_str(), at(50), at(95), at(100), target.missed);
}

} // namespace

int main(int argc, char** argv)
{
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), &xcb_disconnect);
    if (xcb_connection_has_error(connection.get())) {
        std::fputs("No display.\n", stderr);
        return 1;
    }
    KeyPresser presser(connection.get());
    auto options = parse({argv + 1, argv + argc}, presser);
    if (!options) {
        std::fputs("usage: SummonLatency [--rounds N] [--warm-up N] [--type KEY] "
                   "(NAME=CHORD | NAME=run:COMMAND | NAME=toggle:COMMAND)...\n",
                   stderr);
        return 2;
    }

    ScreenWatch screen(connection.get());
    const auto middle = screen.middle(0);
    xcb_test_fake_input(
        connection.get(), XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, XCB_NONE, middle.x, middle.y, 0);
    xcb_flush(connection.get());

    for (int round = -options->warmUpRounds; round < options->rounds; ++round) {
        for (auto& target : options->targets) {
            measureOnce(target, *options, presser, screen, round < 0);
        }
    }
    std::ranges::for_each(options->targets, print);
    return std::ranges::all_of(options->targets, [](const Target& t) { return t.missed == 0; }) ? 0
                                                                                                : 1;
}
