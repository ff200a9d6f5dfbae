// Any bytes as the file through which a second start finds the window, and as a program's path.

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
    Check(ReadWindowHandle(file) == expected, "eight bytes, the lowest first, or no window");
    std::istringstream beginning(bytes.substr(0, 8));
    Check(ReadWindowHandle(beginning) == expected, "what follows does not count");
    std::istringstream cut(bytes.substr(0, 7));
    Check(ReadWindowHandle(cut) == 0, "fewer bytes name no window");

    const std::string path = HwndFilePathOf(bytes);
    const std::string name = "/hwndFile.ini";
    Check(path.size() >= name.size(), "the file has its name");
    const std::string folder = path.substr(0, path.size() - name.size());
    Check(path == folder + name, "the file has its name");
    const std::string program = bytes.substr(folder.size());
    Check(bytes == folder + program, "the folder is the program's");
    Check(program.empty() ? bytes.find('/') == std::string::npos : program.find_last_of('/') == 0,
          "the program lies directly in it");
    return 0;
}
