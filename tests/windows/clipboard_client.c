/* A program that knows the clipboard by the system's own calls only, as other makers' programs do.
 *
 *   clipboard_client put FILE     puts a file's bytes there as sound (CF_WAVE)
 *   clipboard_client get FILE     writes the sound from there to a file
 *   clipboard_client text         puts text there and nothing else
 *   clipboard_client hold         keeps it open for a second, after printing a line
 *
 * Ends with 0 when that was done, 1 when not.
 */

#include <stdio.h>
#include <string.h>
#include <windows.h>

/* What is put there needs a window as its owner, which may go afterwards. */
static int Open(void) {
    return OpenClipboard(
        CreateWindowA("STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, NULL, NULL, NULL));
}

static int Give(UINT format, HGLOBAL block) {
    int done = Open() && EmptyClipboard() && SetClipboardData(format, block) != NULL;
    CloseClipboard();
    return done;
}

static int Put(const char* name) {
    FILE* file = fopen(name, "rb");
    HGLOBAL block;
    size_t size;
    if (!file) return 0;
    fseek(file, 0, SEEK_END);
    size = (size_t)ftell(file);
    rewind(file);
    block = GlobalAlloc(GMEM_MOVEABLE, size);
    size -= fread(GlobalLock(block), 1, size, file);
    GlobalUnlock(block);
    fclose(file);
    return size == 0 && Give(CF_WAVE, block);
}

static int Get(const char* name) {
    HGLOBAL block;
    FILE* file;
    size_t left;
    if (!Open()) return 0;
    block = GetClipboardData(CF_WAVE);
    file = block ? fopen(name, "wb") : NULL;
    if (!file) return 0;
    left = GlobalSize(block);
    left -= fwrite(GlobalLock(block), 1, left, file);
    GlobalUnlock(block);
    CloseClipboard();
    return fclose(file) == 0 && left == 0;
}

static int Text(void) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 6);
    strcpy(GlobalLock(block), "words");
    GlobalUnlock(block);
    return Give(CF_TEXT, block);
}

static int Hold(void) {
    if (!Open()) return 0;
    puts("open");
    fflush(stdout);
    Sleep(1000);
    return CloseClipboard();
}

int main(int count, char** arguments) {
    const char* way = count > 1 ? arguments[1] : "";
    int done = 0;
    if (count == 3 && !strcmp(way, "put")) done = Put(arguments[2]);
    if (count == 3 && !strcmp(way, "get")) done = Get(arguments[2]);
    if (!strcmp(way, "text")) done = Text();
    if (!strcmp(way, "hold")) done = Hold();
    return done ? 0 : 1;
}
