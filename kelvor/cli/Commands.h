#pragma once

#include "cli/CommandContext.h"

/**
 * @file The commands of kelvor-edit. Each takes its context, whose arguments KelvorEdit has
 * read against the command's options, and answers the exit status: 0 success, 1 failure,
 * 2 bad usage. A command that writes OUT writes it only when everything before went well.
 */
namespace kelvor::commands
{

// Files: FileCommands.cpp
int info(CommandContext& context);
int check(CommandContext& context);
int convert(CommandContext& context);
int removeDuplicates(CommandContext& context);
int validate(CommandContext& context);
int exportTracks(CommandContext& context);

// Track processing: TrackCommands.cpp
int decimate(CommandContext& context);
int filterSpeed(CommandContext& context);
int derive(CommandContext& context);
int exportGog(CommandContext& context);

// The platform transform: TransformCommand.cpp
int transform(CommandContext& context);

// Merges: MergeCommands.cpp
int merge(CommandContext& context);
int autoMerge(CommandContext& context);
int manualMerge(CommandContext& context);
int dropouts(CommandContext& context);

// Whole-scenario repairs: ScenarioCommands.cpp
int makeStationary(CommandContext& context);
int shiftTimes(CommandContext& context);

} // namespace kelvor::commands
