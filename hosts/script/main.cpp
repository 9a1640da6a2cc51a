// mavrin2: scripts, information and conversions by way of the sound editor's automation interface.

#include <string>
#include <vector>

#include "hosts/script/program.h"

int main(int count, char** values) {
    const std::vector<std::string> arguments(values + (count > 0 ? 1 : 0), values + count);
    return mavrin2::script::RunProgram(arguments);
}
