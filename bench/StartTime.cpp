// Measures how long programs take from their start to their first picture on an otherwise empty
// display: songrush_start_time <runs> <program> <program to compare with>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <vector>

extern char** environ;

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::chrono::microseconds kLookEvery(300);
constexpr std::chrono::seconds kLimit(30);

class Screen {
public:
    Screen() : mDisplay(XOpenDisplay(nullptr)) {
        if (mDisplay == nullptr)
            throw std::runtime_error("no display");
    }
    ~Screen() { XCloseDisplay(mDisplay); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Whether a line through the window's middle has anything on it.
    bool IsPainted() const {
        constexpr int kMiddle = 300;
        constexpr unsigned kWidth = 800;
        const std::unique_ptr<XImage, int (*)(XImage*)> line(
            XGetImage(mDisplay, DefaultRootWindow(mDisplay), 0, kMiddle, kWidth, 1, AllPlanes,
                      ZPixmap),
            [](XImage* image) { return XDestroyImage(image); });
        if (!line)
            throw std::runtime_error("the display cannot be read");
        const char* end = line->data + line->bytes_per_line;
        return std::any_of(line->data, const_cast<char*>(end), [](char byte) { return byte != 0; });
    }

    void WaitUntilPainted(bool painted) const {
        const auto end = Clock::now() + kLimit;
        while (IsPainted() != painted) {
            if (Clock::now() > end)
                throw std::runtime_error(painted ? "nothing is painted"
                                                 : "the display is not empty");
            std::this_thread::sleep_for(kLookEvery);
        }
    }

private:
    Display* mDisplay;
};

double StartTime(const Screen& screen, const std::string& program) {
    screen.WaitUntilPainted(false);
    std::string name = program;
    char* arguments[] = {name.data(), nullptr};
    pid_t process = 0;
    const auto start = Clock::now();
    if (posix_spawn(&process, program.c_str(), nullptr, nullptr, arguments, environ) != 0)
        throw std::runtime_error("cannot start " + program);
    screen.WaitUntilPainted(true);
    const Milliseconds time = Clock::now() - start;
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
    return time.count();
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void Measure(int runs, const std::string& program, const std::string& other) {
    const Screen screen;
    std::vector<double> times;
    std::vector<double> otherTimes;
    // The first run of each fills the page cache.
    for (int run = 0; run <= runs; ++run) {
        const double time = StartTime(screen, program);
        const double otherTime = StartTime(screen, other);
        if (run == 0)
            continue;
        times.push_back(time);
        otherTimes.push_back(otherTime);
    }
    std::printf("%-40s %7.1f ms\n%-40s %7.1f ms\nratio %.2f\n", program.c_str(), Median(times),
                other.c_str(), Median(otherTimes), Median(times) / Median(otherTimes));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4 || std::atoi(argv[1]) < 1) {
        std::fputs("Usage: songrush_start_time <runs> <program> <program to compare with>\n",
                   stderr);
        return 2;
    }
    try {
        Measure(std::atoi(argv[1]), argv[2], argv[3]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
