#include "app/environment.h"
#include "app/process_utils.h"
#include "app/window_handle_file.h"
#include "services/product/product_facts.h"
#include "services/telemetry/telemetry_binding.h"

#include <QDir>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

namespace {

bool HasTelemetryLibrary()
{
    std::ifstream mapped("/proc/self/maps");
    const std::string files(std::istreambuf_iterator<char>(mapped), {});
    return files.find("/SkyrelWrap.DLL\n") != std::string::npos;
}

} // namespace

// Prints the paths that the program derives from its own path, one line each.
int main()
{
    const TelemetryBinding binding;
    PrepareEnvironment();
    std::cout << "handle file=" << GetHwndFilePath() << '\n'
              << "library=" << (HasTelemetryLibrary() ? "yes" : "no") << '\n'
              << "folder=" << QString::fromStdWString(GetModuleDirW()).toStdString() << '\n'
              << "working directory=" << QDir::currentPath().toStdString() << '\n'
              << "version=" << QString::fromStdWString(GetConfigVersionNo()).toStdString() << '\n';
    return 0;
}
