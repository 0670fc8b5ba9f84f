// What the described stage has beyond the rows that both stages play: failures in the middle.
#pragma once

#include "desk/computer/described_machine.h"
#include "tools/run_stage/stage.h"

/// Anything of the machine that a row is about; its `user` is called ahead of the row's answers.
[[nodiscard]] Given machine(const std::function<void(DescribedMachine& machine)>& change);
