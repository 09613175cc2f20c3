#include "Program.h"

int main(int argc, char** argv) {
    tarnwell::Program program(argc, argv);
    return program.run();
}
