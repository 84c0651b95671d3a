// The program starts here.
#include "app/ZephPlayerApp.h"

int main(int argc, char *argv[])
{
    return zeph::ZephPlayerApp::run(argc, argv);
}
