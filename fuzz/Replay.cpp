#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

/// Plays every kept input of a target again, without a fuzzer. Usage: PROGRAM FOLDER
int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    int played = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<unsigned char> bytes{std::istreambuf_iterator<char>(file), {}};
        std::cout << entry.path().filename().string() << std::endl;
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        ++played;
    }
    return played > 0 ? 0 : 1;
}
