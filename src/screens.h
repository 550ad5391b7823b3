#pragma once

#include "ui/navigator.h"

#include <vector>

// Every screen of the program: its name, its title, its return button and how to make it.
std::vector<ScreenEntry> allScreens();
