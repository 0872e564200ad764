#include "verify/families/families.h"

#include <array>

#include "verify/families/computed_families.h"
#include "verify/families/meeting_families.h"
#include "verify/families/riemann_families.h"
#include "verify/families/smooth_families.h"

std::span<const Family> AllFamilies() {
    static constexpr std::array families = {
        Family{"mild", "two states that differ by factors up to 4", MildJump},
        Family{"strong", "pressures that differ by factors of 30 to 100,000", StrongJump},
        Family{"parting", "streams that part at up to 0.8 of the speed that opens a vacuum",
               PartingStreams},
        Family{"colliding", "streams that collide at Mach 0.5 to 30", CollidingStreams},
        Family{"carried-collision", "the same, carried along", CarriedCollision},
        Family{"slow-shock", "single shocks at 0.01 to 0.3 of their speed in the gas", SlowShock},
        Family{"slow-contact", "contacts at rest or at up to 0.3 of the sound speed", SlowContact},
        Family{"near-vacuum", "streams that part at 0.8 to 0.96 of that speed; thin gas ahead",
               NearVacuum},
        Family{"large-ratio", "densities that differ by 100 to 10,000", LargeRatios},
        Family{"moving-frame", "two states carried along at 0.5 to 10", MovingFrame},
        Family{"courant", "Courant targets 0.1 to 0.95", AnyCourant},
        Family{"gamma", "ratios of specific heats 1.1 to 3", AnyGamma},
        Family{"shock-contact", "shocks of Mach 1.1 to 20 that have met a contact",
               ShockMeetsContact},
        Family{"shock-wall", "shocks that have met a wall, some with a contact ahead",
               ShockMeetsWall},
        Family{"stream-wall", "streams against a wall whose shock has met a contact",
               StreamMeetsWall},
        Family{"shock-shock", "two shocks that have met, head on or from behind", ShocksMeet},
        Family{"tubes-meet", "the waves of two jumps that have met", TubesMeet},
        Family{"box", "gas that moves between walls, onto one and away from the other", MovingBox},
        Family{"uneven-jump", "two states on cells of unequal width", UnevenJump},
        Family{"uneven-smooth", "waves of sound and density on cells of unequal width",
               UnevenSmooth},
        Family{"shock-on-wave", "shocks through waves and bumps of density", ShockOnWave, false,
               true},
        Family{"blast", "three states between walls whose waves have met", BlastWaves, false, true},
        Family{"pulse", "pulses of pressure that part, turn into shocks and meet", Pulse, false,
               true},
        Family{"ramp", "ramps of density over 4 to 32 cells, carried along", CarriedRamp},
        Family{"bump", "single bumps of density, carried along", CarriedBump},
        Family{"density-wave", "sine waves of density, carried along", CarriedWave, true},
        Family{"sound", "simple waves of amplitude 0.0005 to 0.02", SmallSoundWave, true},
        Family{"finite-sound", "simple waves of amplitude 0.05 to 0.3 before they break",
               FiniteSoundWave, true},
        Family{"fast-sound", "simple waves in frames that move at 5 to 30", FastWave, true},
    };
    return families;
}
