// Any bytes as the window-handle file, and as the program's path.

#include "app/window_handle_file.h"
#include "tests/fuzz/fuzz.h"

#include <sstream>

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string bytes(Whole(data, size));
    std::uint64_t expected = 0;
    for (std::size_t index = 0; size >= 8 && index < 8; ++index) {
        expected |= std::uint64_t{data[index]} << 8 * index;
    }
    std::istringstream file(bytes);
    Check(ReadWindowHandle(file) == expected, "the handle is eight bytes, little-endian, or 0");
    std::istringstream beginning(bytes.substr(0, 8));
    Check(ReadWindowHandle(beginning) == expected, "further bytes are ignored");
    std::istringstream cut(bytes.substr(0, 7));
    Check(ReadWindowHandle(cut) == 0, "fewer bytes give no window");

    const std::string path = HwndFilePathOf(bytes);
    const std::string name = "/hwndFile.ini";
    Check(path.size() >= name.size(), "the path is long enough for the file's name");
    const std::string folder = path.substr(0, path.size() - name.size());
    Check(path == folder + name, "the path ends with the file's name");
    const std::string program = bytes.substr(folder.size());
    Check(bytes == folder + program, "the folder is the program's folder");
    Check(program.empty() ? bytes.find('/') == std::string::npos : program.find_last_of('/') == 0,
          "the program is directly in that folder");
    return 0;
}
