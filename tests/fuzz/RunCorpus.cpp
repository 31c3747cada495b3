// Runs a fuzz target over the files of a folder, for compilers without libFuzzer.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
    int ran = 0;
    for (int position = 1; position < count; ++position) {
        for (const auto& entry : std::filesystem::directory_iterator(arguments[position])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(file), {}};
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                   bytes.size());
            ++ran;
        }
    }
    std::printf("%d inputs\n", ran);
    return ran > 0 ? 0 : 1;
}
