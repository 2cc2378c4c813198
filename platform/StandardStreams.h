#pragma once

/// The three streams that a process is started with.
namespace standard_streams {

/// Takes the places of those that were closed, so that no file gets one of them and what is written there fails. To be
/// called before anything is opened.
void keepPlaces();

}  // namespace standard_streams
