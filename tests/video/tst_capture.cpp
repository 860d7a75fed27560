// The in-process capture layer with its test source: the pipeline's life and
// the handlers that carry what happened to every user.
#include "support/testunit.h"
#include "video/capture/capture.h"
#include "video/capture/cascadedcapturestatushandler.h"
#include "video/capture/gstreamerpalpipeline.h"
#include "video/capture/videolibrary.h"

#include <QSignalSpy>
#include <QtTest>

#include <stdexcept>

namespace {
// Counts what reaches one observer.
class CountingHandler : public VideoCaptureStatusHandler
{
public:
    int errors = 0;
    int completed = 0;
    std::string lastError;
    void videoCaptureErrorHandler(bool, std::string message) override
    {
        ++errors;
        lastError = message;
    }
    void jpegCompleteHandler(int) override {}
    void jpegErrorHandler(int, std::string) override {}
    void videoRecordingCompleteHandler() override { ++completed; }
    void videoShutdownCompleteHandler() override {}
    void cameraDetachedHandler() override {}
    void cameraAttachedHandler() override {}
};
} // namespace

class TestCapture : public QObject
{
    Q_OBJECT
    TestUnit m_unit;

private slots:
    void initTestCase();
    void cascadedHandlerReachesEveryObserverUntilRemoved();
    void pipelineThatCannotBeBuiltSaysWhy();
    void videoStartsOnceAndStopsOnce();
};

void TestCapture::initTestCase()
{
    QVERIFY(m_unit.isValid());
    QVERIFY(QDir().mkpath(m_unit.path(QStringLiteral("/home/pi"))));
}

void TestCapture::cascadedHandlerReachesEveryObserverUntilRemoved()
{
    CascadedCaptureStatusHandler cascade;
    CountingHandler first;
    CountingHandler second;
    cascade.registerObserver(&first);
    cascade.registerObserver(&second);
    cascade.registerObserver(&first);
    cascade.videoCaptureErrorHandler(false, "lost");
    QCOMPARE(first.errors, 1);
    QCOMPARE(second.errors, 1);
    QCOMPARE(second.lastError, std::string("lost"));
    cascade.removeObserver(&first);
    cascade.videoRecordingCompleteHandler();
    QCOMPARE(first.completed, 0);
    QCOMPARE(second.completed, 1);
}

void TestCapture::pipelineThatCannotBeBuiltSaysWhy()
{
    CountingHandler handler;
    GStreamerPALPipeline pipeline(&handler, "nosuchelement");
    QVERIFY_EXCEPTION_THROWN(pipeline.startVideo(), std::runtime_error);
    QCOMPARE(pipeline.lifecycle(), GStreamerPALPipeline::kStopped);
    // Nothing is running, so there is nothing to stop.
    pipeline.stopVideo();
    QCOMPARE(pipeline.lifecycle(), GStreamerPALPipeline::kStopped);
}

void TestCapture::videoStartsOnceAndStopsOnce()
{
    VideoLibrary library;
    QSignalSpy errors(&library, &VideoLibrary::videoCaptureError);
    QSignalSpy complete(&library, &VideoLibrary::videoRecordingComplete);
    library.stopVideo();
    QVERIFY(!library.isActive());

    library.startVideo();
    QVERIFY(library.isActive());
    library.startVideo();
    QVERIFY(library.isActive());
    QCOMPARE(errors.count(), 0);

    // A frame fed while running counts 40 ms; while stopping it is dropped.
    const unsigned char frame[16] = {};
    capture::instance()->pipeline().pushBuffer(frame, sizeof frame);
    QCOMPARE(library.getPosition(), uint64_t(40));
    library.stopVideo();
    capture::instance()->pipeline().pushBuffer(frame, sizeof frame);
    QCOMPARE(library.getPosition(), uint64_t(40));

    // The end of stream brings the pipeline down and says the recording is complete.
    QVERIFY(complete.wait(10000) || complete.count() == 1);
    QCOMPARE(complete.count(), 1);
    QVERIFY(!library.isActive());
    QCOMPARE(errors.count(), 0);
}

QTEST_MAIN(TestCapture)
#include "tst_capture.moc"
