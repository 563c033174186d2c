#pragma once
// What a platform with native views tells the tree about events. No JUCE type stands here.
// Everything is called on the host's main thread.

enum class KeyboardOwner
{
    panel,
    host
};

/// The system is about to deliver a key press or a mouse press to the window of `view`. Each event is
/// announced once, before anything else sees it. `view` is the widget's view, which JUCE has made; any other
/// view does nothing. Until the next announcement a key acts once, however often it is delivered, and only if
/// the panel owns the keyboard.
void AnnounceTreeEvent(void* view, KeyboardOwner);
