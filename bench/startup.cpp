// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// Prints the time from process start to the first painted tiles of the library, beside the first paint of a
// trivial program, the two in turn: startup [runs]. The installation is made for the occasion, from the
// repository's zbo\.

namespace fs = std::filesystem;

namespace
{

/// With or without what the program begins beside the start of its windows.
enum class Start { Early, Plain };

/// Milliseconds until the program says that it has painted; a negative number where it never does.
double firstPaint(const fs::path& program, const fs::path& folder, Start start = Start::Early)
{
    int ends[2];
    if (::pipe(ends) != 0)
        return -1;
    const auto begin = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::close(ends[0]);
        ::close(ends[1]);
        ::setenv("ZORBINO_TELL_FIRST_PAINT", "1", 1);
        if (start == Start::Plain)
            ::setenv("ZORBINO_START_PLAIN", "1", 1);
        if (::chdir(folder.c_str()) == 0)
            ::execl(program.c_str(), program.c_str(), nullptr);
        ::_exit(127);
    }
    ::close(ends[1]);
    char byte = 0;
    const bool painted = child > 0 && ::read(ends[0], &byte, 1) == 1;
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - begin;
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return painted ? time.count() : -1;
}

void makeInstallation(const fs::path& folder, int games)
{
    fs::copy(fs::path(ZB_SOURCE_DIR) / "zbo", folder / "zbo", fs::copy_options::recursive);
    fs::copy(ZB_PROGRAM, folder / "zorbino.exe");
    for (int number = 1; number <= games; ++number) {
        char name[9];
        std::snprintf(name, sizeof name, "%08d", number);
        const fs::path game = folder / "games" / name;
        fs::create_directories(game);
        for (const char* file : {"code.txt", "icon.bmp"})
            fs::copy(folder / "zbo" / file, game / file);
        std::ofstream(game / "prop.zbo") << "An author\r\nGame " << number << "\r\n";
    }
}

double median(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

bool compare(int games, int runs, double limit)
{
    std::string pattern = (fs::temp_directory_path() / "startup.XXXXXX").string();
    const fs::path folder = ::mkdtemp(pattern.data());
    makeInstallation(folder, games);
    std::vector<double> ours;
    std::vector<double> plain;
    std::vector<double> trivial;
    for (int run = -2; run < runs; ++run) { // the first runs only fill the caches
        const double a = firstPaint(ZB_TRIVIAL, folder);
        const double b = firstPaint(folder / "zorbino.exe", folder);
        const double c = firstPaint(folder / "zorbino.exe", folder, Start::Plain);
        if (a < 0 || b < 0 || c < 0) {
            std::fputs("A program did not paint. Is there a display?\n", stderr);
            fs::remove_all(folder);
            return false;
        }
        if (run >= 0) {
            trivial.push_back(a);
            ours.push_back(b);
            plain.push_back(c);
        }
    }
    fs::remove_all(folder);
    const double ratio = median(ours) / median(trivial);
    std::printf("%5d games: library %6.1f ms, trivial window %6.1f ms, ratio %.2f (at most %.1f); starting "
                "early saves %.1f ms\n",
                games, median(ours), median(trivial), ratio, limit, median(plain) - median(ours));
    return ratio <= limit;
}

} // namespace

int main(int argc, char* argv[])
{
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 15;
    const bool few = compare(6, runs, 1.5);
    const bool many = compare(1000, runs, 3.0);
    return few && many ? 0 : 1;
}
