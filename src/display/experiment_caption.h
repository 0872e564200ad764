// The label that keeps the record of the experiment.
#pragma once

struct Controls;
struct ExperimentState;
struct RiemannProblem;

// Rewrites lblStudentID from the set-up, unless the user has given a title: in the form of a sound
// wave, of six or of four control points. With any other number of points it stays as it is.
void ComposeExperimentCaption(const ExperimentState& state, Controls& controls);

// The same at the set-up of a sound wave, which asks only whether anybody has replaced the caption
// the window came up with.
void ComposeSoundWaveCaption(const ExperimentState& state, Controls& controls);

// The same at the set-up of a test, from the numbers of the problem.
void ComposeRiemannCaption(const ExperimentState& state, Controls& controls,
                           const RiemannProblem& problem);
