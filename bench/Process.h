#pragma once

/// What the system says of the benchmark's own process.
namespace corvane::bench {

double residentMebibytes();

/// Processor time of all threads so far, in the program and in the kernel for it.
double processorSeconds();

/// As many open files as the system grants: each connection is one.
void allowManyFiles();

} // namespace corvane::bench
