// The label that keeps the record of the experiment, and for a while says why a run has stopped.
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

// Lays the reason of state.Refusal over the caption, the user's title included: a box would wait
// for an answer in the middle of the tick.
void ShowRefusal(const ExperimentState& state, Controls& controls);

// Takes it away again, so that the label is as if it had never been there. Each Compose begins with
// this; without a message, or once another caption has taken its place, nothing happens.
void HideRefusal(Controls& controls);
