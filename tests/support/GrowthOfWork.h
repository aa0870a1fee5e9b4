#pragma once

#include <functional>

/// How many times as much work it is when a size grows by that factor: about the factor itself for work in proportion,
/// its square for work that grows by the square. It counts the processor's time for this process, so that neither the
/// machine's speed nor what else it has to do matters.
double growthOfWork(const std::function<void(int size)> &work, int size, int factor);
