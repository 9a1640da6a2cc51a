// mavrin2-register: enters components into a component registry, or removes them from it, by the
// entry point that every component exports for that purpose.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/environment.h"
#include "platform/module_loader.h"

namespace {

constexpr int Success = 0;
constexpr int Failure = 1;
constexpr int WrongUse = 2;

constexpr std::string_view Help =
    R"(Usage: mavrin2-register [--unregister] [--registry FILE] MODULE...

Enters the components of each MODULE (a shared library that exports DllRegisterServer) into the
component registry, where hosts find them by class or program identifier.

  --registry FILE  the registry to change, made where it is missing; otherwise the file that
                   MAVRIN2_REGISTRY names, or the user's own
  --unregister     remove the components instead (DllUnregisterServer)
  --help           this text

A module below the registry's folder is entered by its path relative to it, so that both can
be moved together. Stops at the first module that fails.
Exit codes: 0 all done, 1 a module failed, 2 wrong use.
)";

struct Request {
    bool Unregister = false;
    bool ShowHelp = false;
    std::filesystem::path Registry;
    std::vector<std::filesystem::path> Modules;
};

// False when the arguments make no sense; the reason has been printed then.
bool Parse(const std::vector<std::string_view>& arguments, Request& request) {
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "--help") {
            request.ShowHelp = true;
            return true;
        }
        if (*argument == "--unregister") {
            request.Unregister = true;
        } else if (*argument == "--registry") {
            if (++argument == arguments.end()) {
                std::fputs("mavrin2-register: --registry needs a file name\n", stderr);
                return false;
            }
            request.Registry = *argument;
        } else if (argument->starts_with("-")) {
            std::fprintf(stderr, "mavrin2-register: unknown option %s\n", argument->data());
            return false;
        } else {
            request.Modules.emplace_back(*argument);
        }
    }
    if (request.Modules.empty()) {
        std::fputs("mavrin2-register: no module given; see --help\n", stderr);
        return false;
    }
    return true;
}

bool CallEntryPoint(const std::filesystem::path& module, const char* entryPoint) {
    std::error_code error;
    // Absolute, because the component writes down the path by which it was loaded.
    const std::filesystem::path path = std::filesystem::absolute(module, error);
    std::string reason = error.message();
    const auto loaded =
        error ? nullptr : mavrin2::platform::SystemModuleLoader()->Load(path, reason);
    if (!loaded) {
        std::fprintf(stderr, "mavrin2-register: %s\n", reason.c_str());
        return false;
    }
    const auto function = loaded->Find(entryPoint);
    if (!function) {
        std::fprintf(stderr, "mavrin2-register: %s does not export %s\n", module.c_str(),
                     entryPoint);
        return false;
    }
    const auto call = reinterpret_cast<std::int32_t (*)()>(function);
    const std::int32_t status = call();
    if (status < 0) {
        std::fprintf(stderr, "mavrin2-register: %s of %s failed with status 0x%08X\n", entryPoint,
                     module.c_str(), static_cast<unsigned>(status));
        return false;
    }
    return true;
}

int Run(const Request& request) {
    if (!request.Registry.empty()) {
        const auto registry = std::filesystem::absolute(request.Registry);
        mavrin2::platform::SetEnvironmentVariable("MAVRIN2_REGISTRY", registry.string());
    }
    const char* const entryPoint = request.Unregister ? "DllUnregisterServer" : "DllRegisterServer";
    for (const auto& module : request.Modules) {
        if (!CallEntryPoint(module, entryPoint)) {
            return Failure;
        }
    }
    return Success;
}

}  // namespace

int main(int count, char** values) {
    try {
        Request request;
        if (!Parse({values + 1, values + count}, request)) {
            return WrongUse;
        }
        if (request.ShowHelp) {
            std::fputs(Help.data(), stdout);
            return Success;
        }
        return Run(request);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mavrin2-register: %s\n", error.what());
        return Failure;
    }
}
