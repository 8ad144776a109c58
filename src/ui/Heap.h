#pragma once
// How the program's heap gives memory back, so that a long session stays at the size of what it
// holds: one heap for every thread; blocks of 64 KiB and more (window images, sound clips, the
// buffers a dialog paints into) taken from the system and returned when freed, so that they leave
// no holes; and the free pages inside the heap returned once a dialog or a box has closed.
namespace swui {

// Call first thing in main().
void TuneHeap();
// Returns the heap's free pages to the system (a few microseconds for a heap of a few megabytes).
void ReturnFreeMemory();

}  // namespace swui
