// The least that a program does which makes a control parameter file and sees it reach the disk,
// its folder included: `zorbi2 write` is measured beside it. Uses the C library alone.
//   zorbi2_bare_write FILE    into the current folder
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

int main(int count, char** arguments) {
    std::FILE* file = count == 2 ? std::fopen(arguments[1], "w") : nullptr;
    if (file == nullptr) {
        return 1;
    }
    char text[2600] = {};
    std::memset(text, 'x', sizeof text - 1);
    std::fputs(text, file);
    std::fflush(file);
    fsync(fileno(file));
    fsync(open(".", O_RDONLY | O_DIRECTORY));
    return std::fclose(file);
}
