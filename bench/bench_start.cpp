// Whole processes, from their start to the first painted window of a title, turn by turn on the X display at hand:
//     bench_start RUNS TITLE1 COMMAND1 TITLE2 COMMAND2
// A command is one word or several parted by blanks. Prints the medians of the wall time, of the processor time by
// then and of the peak memory, and the second command's ratio to the first.
#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kPatience = std::chrono::seconds(60);
constexpr auto kPollEvery = std::chrono::microseconds(300);
/// By then the program has settled, so that its peak memory counts what it does behind the first picture too.
constexpr auto kSettle = std::chrono::milliseconds(700);

struct Measured {
  double wallMs = 0;
  double cpuMs = 0;
  double peakKB = 0;
};

template <class Reply>
struct Owned {
  Reply* reply;
  ~Owned() { std::free(reply); }
  Reply* operator->() const { return reply; }
  explicit operator bool() const { return reply != nullptr; }
};

class Display {
 public:
  Display() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_) != 0) {
      std::fputs("no X display\n", stderr);
      std::exit(1);
    }
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
  }

  /// True when a window with this in its title is on the screen and something has been painted in its middle.
  bool shows(const std::string& title) const {
    const Owned<xcb_query_tree_reply_t> tree{
        xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr)};
    if (!tree) {
      return false;
    }
    const xcb_window_t* const children = xcb_query_tree_children(tree.reply);
    const int count = xcb_query_tree_children_length(tree.reply);
    return std::any_of(children, children + count, [&](xcb_window_t window) {
      return titleOf(window).find(title) != std::string::npos && isPainted(window);
    });
  }

 private:
  std::string titleOf(xcb_window_t window) const {
    const auto cookie = xcb_get_property(connection_, 0, window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, 0, 256);
    const Owned<xcb_get_property_reply_t> name{xcb_get_property_reply(connection_, cookie, nullptr)};
    if (!name) {
      return {};
    }
    return {static_cast<const char*>(xcb_get_property_value(name.reply)),
            static_cast<size_t>(xcb_get_property_value_length(name.reply))};
  }

  /// The bare display is black; any other colour has been painted.
  bool isPainted(xcb_window_t window) const {
    const Owned<xcb_get_geometry_reply_t> size{
        xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr)};
    if (!size) {
      return false;
    }
    const auto cookie =
        xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<int16_t>(size->width / 2),
                      static_cast<int16_t>(size->height / 2), 1, 1, ~0U);
    const Owned<xcb_get_image_reply_t> image{xcb_get_image_reply(connection_, cookie, nullptr)};
    if (!image || xcb_get_image_data_length(image.reply) < 3) {
      return false;
    }
    const uint8_t* const pixel = xcb_get_image_data(image.reply);
    return pixel[0] != 0 || pixel[1] != 0 || pixel[2] != 0;
  }

  xcb_connection_t* connection_;
  xcb_window_t root_ = 0;
};

std::vector<std::string> wordsOf(const std::string& command) {
  std::istringstream stream(command);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) {
    words.push_back(word);
  }
  return words;
}

pid_t start(const std::string& command) {
  const pid_t child = fork();
  if (child == 0) {
    std::vector<std::string> words = wordsOf(command);
    std::vector<char*> arguments;
    for (std::string& word : words) {
      arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    execv(arguments[0], arguments.data());
    _exit(127);
  }
  return child;
}

double peakMemory(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("VmHWM:", 0) == 0) {
      return std::atof(line.c_str() + 6);
    }
  }
  return 0;
}

double processorMs(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string stat((std::istreambuf_iterator<char>(file)), {});
  std::istringstream fields(stat.substr(stat.rfind(')') + 2));
  std::string skipped;
  for (int i = 0; i < 11; ++i) {
    fields >> skipped;
  }
  double user = 0;
  double system = 0;
  fields >> user >> system;
  return (user + system) * 1000 / static_cast<double>(sysconf(_SC_CLK_TCK));
}

Measured run(const Display& display, const std::string& title, const std::string& command) {
  const auto begun = Clock::now();
  const pid_t process = start(command);
  while (!display.shows(title)) {
    if (Clock::now() - begun > kPatience || waitpid(process, nullptr, WNOHANG) == process) {
      std::fprintf(stderr, "no window \"%s\" from %s\n", title.c_str(), command.c_str());
      kill(process, SIGKILL);
      std::exit(1);
    }
    std::this_thread::sleep_for(kPollEvery);
  }
  Measured measured;
  measured.wallMs = std::chrono::duration<double, std::milli>(Clock::now() - begun).count();
  measured.cpuMs = processorMs(process);
  std::this_thread::sleep_for(kSettle);
  measured.peakKB = peakMemory(process);
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
  return measured;
}

double median(std::vector<Measured> all, double Measured::*field) {
  std::sort(all.begin(), all.end(), [field](const Measured& a, const Measured& b) { return a.*field < b.*field; });
  return all[all.size() / 2].*field;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) {
    std::fputs("usage: bench_start RUNS TITLE1 COMMAND1 TITLE2 COMMAND2\n", stderr);
    return 2;
  }
  const Display display;
  std::array<std::vector<Measured>, 2> all;
  for (int i = -1; i < std::atoi(argv[1]); ++i) {
    for (size_t which = 0; which < all.size(); ++which) {
      const Measured measured = run(display, argv[2 + which * 2], argv[3 + which * 2]);
      // The first turn only warms the caches.
      if (i >= 0) {
        all[which].push_back(measured);
      }
    }
  }
  const auto print = [&](const char* what, double Measured::*field) {
    const double first = median(all[0], field);
    const double second = median(all[1], field);
    std::printf("%-22s %10.1f %10.1f   ratio %.2f   difference %.1f\n", what, first, second, second / first,
                second - first);
  };
  print("wall ms", &Measured::wallMs);
  print("processor ms", &Measured::cpuMs);
  print("peak memory KB", &Measured::peakKB);
}
