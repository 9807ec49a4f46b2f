// start_bench TITLE PROGRAM ARGUMENT...: starts the program on the present X server and says how many milliseconds
// later its first window of a title that begins with TITLE was mapped, and when what the window shows had come to rest:
// it then stays the same for a while. Beside each, the processor's time that the program had taken, which depends less
// on what else the machine is doing. The program is ended by a signal, and waited for.
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace {

constexpr double Rest = 15;      // milliseconds
constexpr double Most = 20'000;  // milliseconds that are waited at most

double Milliseconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1000 + static_cast<double>(now.tv_nsec) / 1e6;
}

// Of all threads that are there.
double ProcessorMilliseconds(pid_t program) {
  double sum = 0;
  std::error_code none;
  for (const auto& thread : std::filesystem::directory_iterator("/proc/" + std::to_string(program) + "/task", none)) {
    double nanoseconds = 0;
    std::ifstream(thread.path() / "schedstat") >> nanoseconds;
    sum += nanoseconds / 1e6;
  }
  return sum;
}

template <typename T>
std::unique_ptr<T, void (*)(void*)> Owned(T* reply) {
  return {reply, std::free};
}

void Watch(xcb_connection_t* server, xcb_window_t window, std::uint32_t events) {
  xcb_change_window_attributes(server, window, XCB_CW_EVENT_MASK, &events);
}

std::string TitleOf(xcb_connection_t* server, xcb_window_t window) {
  const auto asked = xcb_get_property(server, 0, window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, 0, 100);
  const auto reply = Owned(xcb_get_property_reply(server, asked, nullptr));
  if (!reply) return {};
  return {static_cast<const char*>(xcb_get_property_value(reply.get())),
          static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

std::vector<std::uint8_t> PageOf(xcb_connection_t* server, xcb_window_t window) {
  const auto size = Owned(xcb_get_geometry_reply(server, xcb_get_geometry(server, window), nullptr));
  if (!size) return {};
  const auto asked = xcb_get_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, size->width, size->height, ~0U);
  const auto image = Owned(xcb_get_image_reply(server, asked, nullptr));
  if (!image) return {};
  const std::uint8_t* bytes = xcb_get_image_data(image.get());
  return {bytes, bytes + xcb_get_image_data_length(image.get())};
}

// The window once it is mapped; 0 where it never is.
xcb_window_t AwaitWindow(xcb_connection_t* server, const std::string& title, double end) {
  while (Milliseconds() < end) {
    pollfd readable{xcb_get_file_descriptor(server), POLLIN, 0};
    poll(&readable, 1, 100);
    while (const auto event = Owned(xcb_poll_for_event(server))) {
      const int kind = event->response_type & 0x7f;
      if (kind == XCB_CREATE_NOTIFY) {
        const auto* made = reinterpret_cast<const xcb_create_notify_event_t*>(event.get());
        Watch(server, made->window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        xcb_flush(server);
      } else if (kind == XCB_MAP_NOTIFY) {
        const xcb_window_t window = reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->window;
        if (TitleOf(server, window).starts_with(title)) return window;
      }
    }
  }
  return 0;
}

// When the window became what it then stayed.
double AwaitRest(xcb_connection_t* server, xcb_window_t window, double end) {
  std::vector<std::uint8_t> page;
  double since = Milliseconds();
  while (Milliseconds() < end) {
    std::vector<std::uint8_t> now = PageOf(server, window);
    const bool empty = std::ranges::adjacent_find(now, std::not_equal_to{}) == now.end();
    if (now != page || empty) {
      page = std::move(now);
      since = Milliseconds();
    } else if (Milliseconds() - since >= Rest) {
      return since;
    }
    usleep(1000);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs("start_bench TITLE PROGRAM ARGUMENT...\n", stderr);
    return 2;
  }
  xcb_connection_t* const server = xcb_connect(nullptr, nullptr);
  if (xcb_connection_has_error(server) != 0) return 1;
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
  Watch(server, root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
  // The server has heard of it when it answers.
  std::free(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
  const double begin = Milliseconds();
  const pid_t program = fork();
  if (program == 0) {
    execv(argv[2], argv + 2);
    _exit(127);
  }
  const xcb_window_t window = AwaitWindow(server, argv[1], begin + Most);
  const double mapped = Milliseconds() - begin;
  const double mappedWork = ProcessorMilliseconds(program);
  const double rest = window != 0 ? AwaitRest(server, window, begin + Most) - begin : 0;
  std::printf("mapped %.0f ms (%.0f), at rest %.0f ms (%.0f)\n", mapped, mappedWork, rest,
              ProcessorMilliseconds(program));
  kill(program, SIGTERM);
  waitpid(program, nullptr, 0);
  xcb_disconnect(server);
  return window != 0 && rest > 0 ? 0 : 1;
}
