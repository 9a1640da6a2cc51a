// mavrin2-editor: the sound editor in a window.

#include "hosts/desktop/program.h"

int main(int count, char** values) {
    return mavrin2::desktop::RunProgram(count, values);
}
