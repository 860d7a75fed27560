#pragma once

class Controller;
class Video;

// Joins the main screen to the controller and the camera controller. The screen
// knows neither: it hears the controller's shortcuts through these connections
// and asks for screens and the distance through its own signals and counter source.
class VideoScreenWiring
{
public:
    static void connect(Controller *controller, Video *video);
};
