#include "platform/Version.h"

int appMajor() {
    return ZARVEL_VERSION_MAJOR;
}
int appMinor() {
    return ZARVEL_VERSION_MINOR;
}
int appRevision() {
    return ZARVEL_VERSION_PATCH;
}
