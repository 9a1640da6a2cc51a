// A library that loads well and lacks the entry point of a component.
extern "C" __attribute__((visibility("default"))) int NoEntryPoint() {
    return 0;
}
