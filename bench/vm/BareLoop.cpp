// The minimal program between a mouse and the desktop: grab, read, write. It is the base for comparing other
// programs.
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

int makePointer() {
    const int fd = open("/dev/uinput", O_WRONLY | O_CLOEXEC);
    ioctl(fd, UI_SET_EVBIT, EV_KEY);
    for (int code = BTN_LEFT; code <= BTN_TASK; ++code)
        ioctl(fd, UI_SET_KEYBIT, code);
    ioctl(fd, UI_SET_EVBIT, EV_REL);
    for (const int code : {REL_X, REL_Y, REL_WHEEL, REL_HWHEEL, REL_WHEEL_HI_RES, REL_HWHEEL_HI_RES})
        ioctl(fd, UI_SET_RELBIT, code);
    uinput_setup setup{};
    setup.id.bustype = BUS_VIRTUAL;
    std::strcpy(setup.name, "Bare loop pointer");
    if (ioctl(fd, UI_DEV_SETUP, &setup) < 0 || ioctl(fd, UI_DEV_CREATE) < 0)
        return -1;
    return fd;
}

} // namespace

int main(int argc, char** argv) {
    const int mouse = argc == 2 ? open(argv[1], O_RDONLY | O_CLOEXEC) : -1;
    const int pointer = makePointer();
    if (mouse < 0 || pointer < 0 || ioctl(mouse, EVIOCGRAB, 1) < 0) {
        std::perror("bare loop");
        return 1;
    }
    std::array<input_event, 64> events;
    ssize_t size = 0;
    while ((size = read(mouse, events.data(), sizeof events)) > 0)
        if (write(pointer, events.data(), static_cast<std::size_t>(size)) != size)
            return 1;
    return 0;
}
