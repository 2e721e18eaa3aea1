#pragma once

// The program's version, stamped by the build (the original's App.Major, App.Minor, App.Revision).
int appMajor();
int appMinor();
int appRevision();
