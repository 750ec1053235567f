#pragma once

#include <BrenvikUIKit/BrenvikUIKit.h>
#include <cstddef>

/// How many values there are that a program writes with the names of their members.
std::size_t countValues();
bool componentsTakeBraces();
/// Archives, settings, animations, transactions and the run loop, all from the one header.
bool applicationsNeedNoOtherHeader();
