#pragma once

namespace orvex {
// Arms the database's system timer, if one is set, for the earliest pending
// timer sensor, or stops it when none is pending. Called whenever the front
// of the database's timer queue may have changed and after each run of the
// timer's task.
void armSystemTimer();
}  // namespace orvex
