// The roles of our own widgets for screen readers.
#pragma once

// Registers Surface with screen readers as a graphic, and the main window as a frame: Qt takes both
// for plain widgets. Call once at start-up.
void SpeakOfSurfacesAsPictures();
