// The roles of our own widgets for screen readers.
#pragma once

// Registers Surface with screen readers as a graphic. Call once at start-up.
void SpeakOfSurfacesAsPictures();
