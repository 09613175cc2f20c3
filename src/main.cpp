#include "Program.h"

int main(int argc, char** argv) {
    return tarnwell::runProgram(argc, argv);
}
