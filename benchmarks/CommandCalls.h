#pragma once

/// Commands over collaborators that do next to nothing, so many times, without the dispatcher.
namespace benchmark_commands
{

void nearEnd(long calls);
void rfPower(long calls);
void status(long calls);
void spectrumOf500Points(long calls);

} // namespace benchmark_commands
