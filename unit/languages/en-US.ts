<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>BaseInfo</name>
    <message>
        <source>Press the</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size (mm)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BatteryIndicator</name>
    <message>
        <source>EMPTY</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1%</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Camera</name>
    <message>
        <source>Recorded %1 sec</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please Reboot System</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Camera Fault Detected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Startup Error</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CameraWarnings</name>
    <message>
        <source>CAMERA UNDER PRESSURE&lt;br&gt;Please shut down the Lanthorn for safety.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CAMERA OVER TEMPERATURE&lt;br&gt;Camera may shutdown automatically.&lt;br&gt;Camera should be returned for service.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ClockControl</name>
    <message>
        <source>yyyy/MM/dd hh:mm:ss</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Controller</name>
    <message>
        <source>Done</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Initialising</source>
        <translation>Initializing</translation>
    </message>
</context>
<context>
    <name>CopyDialog</name>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Site: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Survey: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up/Down: choose the device   OK: copy   ESC: cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CopySurvey</name>
    <message>
        <source>&lt;strong&gt;Copy in Progress...&lt;/strong&gt;&lt;br&gt;Please do not remove the media</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos; center&apos;&gt;&lt;strong&gt;WinCan Web Copy in Progress...&lt;/strong&gt;&lt;/p&gt;&lt;p align=&apos;center&apos;&gt;Do Not Remove the WiFi Dongle during Copy!&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;&lt;strong&gt;Copy in Progress...&lt;/strong&gt;&lt;/p&gt;&lt;p align=&apos;center&apos;&gt;Do Not Remove the WiFi Dongle during Copy!&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;&lt;strong&gt;WinCan Web Copy Success&lt;/strong&gt;&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;Successfully Copied Project.&lt;/p&gt;&lt;p align=&apos;center&apos;&gt;You will receive an email when your project has been processed and is ready to view on the Web.&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;&lt;strong&gt;Cloud Copy Success&lt;/strong&gt;&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;Successfully Copied Survey.&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;&lt;strong&gt;WinCan Web Copy Failed&lt;/strong&gt;&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;Downloading WinCan projects is not supported.&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;Please export your WinCan project before uploading.&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;&lt;strong&gt;Cloud Copy Failed&lt;/strong&gt;&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;Error: Copy Aborted.&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;&lt;strong&gt;Copy Success&lt;/strong&gt;&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;&lt;strong&gt;Copy Failed&lt;/strong&gt;&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p align=&apos;center&apos;&gt;Error: Copy Aborted.&lt;/p&gt;&lt;p align=&apos;center&apos;&gt;The copy on the target is incomplete; the original is unchanged.&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CorvaneController</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vitrified Clay (VC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Polyvinyl Chloride (PVC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cast Iron (CI)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Concrete (CO)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brick (BR)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch Fibre (PF)</source>
        <translation>Pitch Fiber (PF)</translation>
    </message>
    <message>
        <source>Other (Z)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upstream (U)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downstream (D)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown (Z)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Combined</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Foul</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Storm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trade Effulent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Culverted Watercourse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subsoil or Field Drainage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press OK to Accept</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press record to start survey or press ostra key for further options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press record to survey new section or press ostra key for further options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace Site Image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Site Image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace Map</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Insert Map Overview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continuous defects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finalise Report</source>
        <translation>Finalize Report</translation>
    </message>
    <message>
        <source>Add Engineer&apos;s Notes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not available while recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Standard ostra</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Standard ostra + WRC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Welcome to ostra reporting. What report format would you like to create?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Project To Open:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>press the snapshot button to take an image or connect your mobile device via the USB port and follow the instructions on the ostra app</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Generating ostra Report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>connect your mobile device via the USB port and follow the instructions on the ostra app</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to stop the recording?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ostra report successfully generated. Do you wish to transfer the report to the ostra app?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Surveyed By?		</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter Start Node Information (Mandatory)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Point: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter Start Node Invert Depth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter Pipe Material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter Pipe Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter Water Level %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Water Level: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter Flow Direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please begin the survey press the Snapshot key at any time to add an observation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter End Node Information (Mandatory)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End Point: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the pipe&apos;s usage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ostra report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The ostra report could not be generated</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CorvaneExport</name>
    <message>
        <source>dd/MM/yy</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DefectCodeChain</name>
    <message>
        <source>Enter Defect Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press Enter to Accept</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can&apos;t find Defect code </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continuous Defect To End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Defect Ended</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DeleteDialog</name>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Site: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Survey: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left/Right: choose   OK: confirm   ESC: cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DeviceScreen</name>
    <message>
        <source>Up/Down: choose   Right/OK: open   Left/ESC: back</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FolderPage</name>
    <message>
        <source>Right/OK: open   Left/ESC: up   C: copy   Backspace: delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GraphicGen</name>
    <message>
        <source>Upstream</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downstream</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HelpScreen</name>
    <message>
        <source>&lt;h2&gt;Help&lt;/h2&gt;&lt;p&gt;The help pages are missing from this unit.&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up/Down: scroll   Tab: next link   OK: open link   ESC: leave</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Indicators</name>
    <message>
        <source>PAGE %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COUNT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BRIGHT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CONTR</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HUE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SATUR</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DATE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TIME</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GRAPH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TEXT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NONE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OFF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NO SAVE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NO CAM</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>READY</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>REC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PAUSE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SAVING</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RESTART</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Login</name>
    <message>
        <source>Welcome</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press Return to start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Starting...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Note:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transfer Successful</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transfer Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Receiving a map file...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Receiving a site image...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transfering ostra Report to mobile...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No PDF Report Found...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transfering XML File to Mobile...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No XML file in project...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MessageDialog</name>
    <message>
        <source>OK: continue</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MiraculIXExport</name>
    <message>
        <source>General photograph taken at this point</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>OperatorComments</name>
    <message>
        <source>	Please add a comment	</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please add your engineer&apos;s notes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Would you Like to add more engineer&apos;s notes?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ParamEntryDialog</name>
    <message>
        <source>Press Up/Down To Change Fields</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press ESC to Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press OK to Confirm</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PipeScreen</name>
    <message>
        <source>/opt/hbi/lanthorn_logo.png</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PlaybackIndicator</name>
    <message>
        <source>PLAY</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>STOP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PAUSE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FWD</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>REW</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>END</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Player</name>
    <message>
        <source>Buffering %1%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Service not available</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The QMediaPlayer object does not have a valid service.
Please check the media service plugins are installed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stalled %1%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This recording cannot be played</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Report</name>
    <message>
        <source>Media Browser</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press Return to continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No drive available for copy.
Please insert a suitable device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Insufficient space on device for copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Directory too large to be copied (Limit is 4GB)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportManager</name>
    <message>
        <source>Devices:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportScreen</name>
    <message>
        <source>OK: full screen   Play/Pause/Stop/Rew/Fwd   Left/ESC: up</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RunInfo</name>
    <message>
        <source>Inspection Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key to save, ESC to exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upstream (U)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downstream (D)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Concrete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ductile (cast) Iron</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch Fibre</source>
        <translation>Pitch Fiber</translation>
    </message>
    <message>
        <source>UPVC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vitrified Clay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invert Depth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comments</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Run Info Pressed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Is Run Info Complete?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size (in)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ServiceActions</name>
    <message>
        <source>No USB stick found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not write to the USB stick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some logs could not be saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 logs saved to the USB stick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not write the settings to the USB stick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings saved to the USB stick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No settings file on the USB stick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings file on the USB stick cannot be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No settings found in the file on the USB stick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 settings loaded from the USB stick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No software update on the USB stick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update is damaged and was not installed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update could not be installed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Software %1 installed. Restart the unit to use it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No logo picture on the USB stick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The logo is larger than the screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not store the logo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Logo updated</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ServiceConsole</name>
    <message>
        <source>Save logs to USB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save settings to USB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Load settings from USB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Software update from USB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Logo update from USB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Service console. Up/Down: choose   OK: run   L: lock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Service console locked. Press OK to enter the service code.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Service Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter the service code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wrong service code</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WinCan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wi-Fi</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Service</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Coiler</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cloud</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsClock</name>
    <message>
        <source>Please enter the date as dd/mm/yyyy and the time as hh:mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The clock cannot be set now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clock set to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Clock</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsCloud</name>
    <message>
        <source>Test Connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Host</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Username</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One or more text fields are blank. 
Please try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cloud Connection Success</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Successfully connected to the Cloud.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cloud Connection Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not connect to the Cloud. 
Make sure you have entered the correct details.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsForm</name>
    <message>
        <source>Clock display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>24 hour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>12 hour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date (dd/mm/yyyy)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time (hh:mm, 24 hour)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Small</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Medium</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Large</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Black on white</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Magenta</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark blue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Red</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>White on black</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Green</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Distance units</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Metres</source>
        <translation>Meters</translation>
    </message>
    <message>
        <source>Feet and inches</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Picture brightness</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Picture contrast</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Picture colour</source>
        <translation>Picture color</translation>
    </message>
    <message>
        <source>Picture hue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date colour</source>
        <translation>Date color</translation>
    </message>
    <message>
        <source>Show time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time colour</source>
        <translation>Time color</translation>
    </message>
    <message>
        <source>Show distance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Distance size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Distance colour</source>
        <translation>Distance color</translation>
    </message>
    <message>
        <source>Header seconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End header</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End header line 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End header line 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End header line 3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End header line 4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>English (UK)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>English (US)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backlight %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blank on tilt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>External display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WRC surveys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Specification</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MSCC 4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MSCC 3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MSCC 5</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MSCC 5 Domestic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text colour</source>
        <translation>Text color</translation>
    </message>
    <message>
        <source>Text seconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stamp codes on the video</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serviceability</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flowing fine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Evidence of leakage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stormwater flooding</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Root growth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Leakage test failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unserviceable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not stated</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsStatus</name>
    <message>
        <source>unknown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Power board</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery voltage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery current</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Camera serial number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Camera firmware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Camera last service</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Over temperature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Under temperature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Humidity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Over voltage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Under voltage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tamper</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Service</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fault</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Log error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unit has a fault: contact service before use.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check with service: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected, reporting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, service due</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsSurvey</name>
    <message>
        <source>[A] Lanthorn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[B] Lanthorn 120</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[C] Mote-Cam</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[D] Lanthorn XL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[E] GullyHopper</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Coiler meterage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[M] Manual</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[A] Automatic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ERROR: COILER NOT PROGRAMMED!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pushrod Length
%1m</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to overwrite current coiler settings?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ShutdownNotice</name>
    <message>
        <source>System Will Now Shutdown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press Return to continue</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SiteInfo</name>
    <message>
        <source>Project Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key to save, ESC to exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Site Name/Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Post Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Client</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contractor Email</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reason For Survey</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drawing Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parking Restrictions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Project Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Would you like to save and continue?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SnapshotWindow</name>
    <message>
        <source>This snapshot cannot be shown</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Splash</name>
    <message>
        <source>Loading...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StorageBase</name>
    <message>
        <source>SD</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>INT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSD0</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSD1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>USB1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>USB2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LOCAL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CLOUD</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WEB</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SurveyController</name>
    <message>
        <source>Note:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SurveyManager</name>
    <message>
        <source>Set Coiler Value in feet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Coiler Value in metres</source>
        <translation>Set Coiler Value in meters</translation>
    </message>
    <message>
        <source>Press OK to Accept - Press Esc to Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;strong&gt;Video Recording Not Possible:&lt;/strong&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Insufficient Storage Available</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Section Information Not Completed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Survey Details Not Completed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Survey Not Ready</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid Save Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press ostra key for further options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press record to survey new section or press ostra key for further options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project nearing storage limit. Please create a new project if more sections are required.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WARNING!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ATEX Terms &amp; Conditions.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter your Passcode to Continue.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press Return to Continue.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TextEntryDialog</name>
    <message>
        <source>An entry is required</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK: accept   ESC: cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Video</name>
    <message>
        <source>SiteAddress</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Postcode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Client</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reason</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drawing#</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ParkingRestrictions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comments</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>StartNode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>StartDepth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EndNode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EndDepth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PipeMaterial</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PipeDimension1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PipeShape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Purpose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cleaning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>StartStreetName</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CityName</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Municipal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>JobID</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remarks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contractor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PipeLength</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LengthEstimated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FinalCategory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Location</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Weather</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Usage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FlowControl</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DrainArea</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LiningMaterial</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LiningType</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Method</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ConstructionYear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FileName</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Site Name/Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invert Depth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recording did not start. Please press Record again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recording Failed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WCFormLists</name>
    <message>
        <source>Upstream (U)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downstream (D)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alkathene (AK)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asbestos cement (AC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bitumen (BL)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brick (BR)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cast Iron (CI)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cement (CL)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spun Grey Iron (SI)</source>
        <translation>Spun Gray Iron (SI)</translation>
    </message>
    <message>
        <source>Concrete (CO)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Concrete Bolted Segments (CSB)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Concrete Unbolted Segments (CSU)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Concrete Box Culvert (CC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ductile Iron (DI)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Glass Reinforced Cement (GRC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Glass Reinforced Plastic (GRP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plastic (PL)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plastic Steel Composite (PSC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Polyvinyl Chloride (PVC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Polyethylene (PE)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reinforced Plastic Matrix (RPM)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resin (RL)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Soft Inversion Type Liner (IS)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Steel (ST)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vitrified Clay (VC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Polypropylene (PP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch Fibre (PF)</source>
        <translation>Pitch Fiber (PF)</translation>
    </message>
    <message>
        <source>Masonry - In Regular Courses (MAC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Masonry - Randomly Coursed (MAR)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other (XXX)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not Known (ZZZ)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asbestos Cement (AC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bitumen Lining (BL)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cement Mortar Lining (CL)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Concrete Segments (CS)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Epoxy (EP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fibre Cement (FC)</source>
        <translation>Fiber Cement (FC)</translation>
    </message>
    <message>
        <source>Fibre Reinforced Plastics (FRP)</source>
        <translation>Fiber Reinforced Plastics (FRP)</translation>
    </message>
    <message>
        <source>Grey Cast Iron (GI)</source>
        <translation>Gray Cast Iron (GI)</translation>
    </message>
    <message>
        <source>Mixed Material Construction (MX)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Polyester (PS)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reinforced Concrete (RC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sprayed Concrete (SPC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unidentified Material (X)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unidentified Type Of Iron Or Steel (XI)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unidentified Type Of Plastics (XP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other (Z)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arched (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Barrel (B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Circular (C)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Egg-Shaped (E)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Horseshoe (H)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Oval (O)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rectangular (R)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trapezoidal (T)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>U-Shaped With Flat Top (U)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kerb Block (K)</source>
        <translation>Curb Block (K)</translation>
    </message>
    <message>
        <source>Circular With Small Channel (RSC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rectangular With Small Channel (RSC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Specific problems on sewer related to structural or service condition defects (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Specific problems on sewer system related to infiltration (B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Assessment of complete remedial or renovation works (C)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pre-adoption - normally new sewers for adoption SfA (D)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pre-acceptance - new sewer direct contract constructed by sewerage undertakers (E)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sample survey to determine asset condition (F)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Associated with future capital scheme including Drainage Area Planning (G)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resurvey for any reason (H)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other (X)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not Known (Z)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Investigation of known defects (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Investigation of infiltration (B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspection of repairs or renovations (C)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pre-adoption survey (D)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspection of new sewers (E)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asset condition of sewer system (F)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A Routine inspection (G)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Investigation of suspected problem (H)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Investment Planning (I)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End of warranty period (J)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes (Y)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No (N)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Main Road - urban (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light Road (C)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Footpath or Verge (D)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fields (E)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gardens (F)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Woodland (G)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Difficult Access (X)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Road (RD)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Verge (VG)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fields (FLD)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Woodland (WLD)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Difficult Access (DIF)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Under A Waterway (WWY)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dry (1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Heavy Rain (2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light Rain (3)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Showers (4)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snow (5)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Rain Or Snow (D)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rain (R)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Melting Snow Or Ice (S)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Above Freezing (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Below Freezing (B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Combined (C)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Foul (F)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Surface Water (S)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trade Effluent (T)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Culverted Watercourse (W)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subsoil Or Field Drainage (LD)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gravity Drain/Sewer (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rising Main (B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vacuum Pipeline (V)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lining Inserted During Manufacture (M)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sprayed Lining (SP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cured-In-Place Lining (CIP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Segmented Lining (SEG)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lining With Discrete Pipes (DP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lining With Continuous Pipe (CP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close-Fit Lining (CF)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spirally-Wound Lining (SW)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Flow Control (N)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flows Blocked Upstream (BL)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flows Partially Blocked Upstream (PB)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CCTV (B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Direct Inspection - Man Entry (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspection From Manhole Or Inspection Chamber (C)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category A (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category B (B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category C (C)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown (Z)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WCParams</name>
    <message>
        <source>Error:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can&apos;t find Defect code </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>error: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[Press OK]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> (Scale 1-5: 1-Poor 5-Flawless)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Code: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Snapshot?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>units = </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Prefix: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximum Number of Continuous Defects Reached</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the Pipe is Flowing Fine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is Evidence of Leakage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>evidence of Stormwater Flooding</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>root Growth may Lead to Blockage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a Leakage Test has Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the Pipe is Unserviceable</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WCProjectInfoV4</name>
    <message>
        <source>WinCan Project Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key to save, ESC to exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project ID</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Catalogue:</source>
        <translation>Catalog:</translation>
    </message>
    <message>
        <source> (unavailable)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WCSectionInfoV4</name>
    <message>
        <source>WinCan Section Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key to save, ESC to exit, Page Up - previous, Page Down - next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Depth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End Depth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pre-Cleaned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Job ID</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Client</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Street</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Town/City</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Div/Dist</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Purpose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remarks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size (inch)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WinCanChain</name>
    <message>
        <source>The Pipe is Flowing Fine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Pipe is Failing to Discharge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is Evidence of Leakage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Evidence of StormWater Flooding</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Root Growth may Lead to Blockage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A Leakage Test has Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Pipe is Unserviceable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can&apos;t find Defect code </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Catagories:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Basecodes:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Char Ext:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Node Type:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to stop the recording?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter Pipe Serviceability</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End Node Type:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Survey Abandon</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WinCanController</name>
    <message>
        <source>Replace Map</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Insert Map Overview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Observation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add by Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End Section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continuous Defects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finalise Report</source>
        <translation>Finalize Report</translation>
    </message>
    <message>
        <source>Not available while recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Follow Instructions in the ostra App to add the Site Overview Map</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Generating WinCan Report...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Project To Open:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WinCan Export Successful</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WinCan Export Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The WinCan report could not be generated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WinCan Report Successfully Generated. Do you wish to transfer the report to the ostra App?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Follow the instructions in the ostra App to transfer the report</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WinCanReport</name>
    <message>
        <source>Photo</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WrcChain</name>
    <message>
        <source>Manhole(MH)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspection Chamber(IC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rodding Eve(RE)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other Special Chamber(OC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outfall(OF)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Major Connection With Manhole(BR)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lamphole(LH)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Soakaway(SK)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gully(GY)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Oil Separator(OS)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Catchpit(CP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Node Type:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End Node Type:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Survey Abandon</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Defect Ended:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>engineersNotes</name>
    <message>
        <source>Engineer&apos;s Notes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please add your engineer&apos;s notes...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key to save, ESC to exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The engineer&apos;s notes could not be saved.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>exportPDF</name>
    <message>
        <source>Filling report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drawing pipe graphics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Converting report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Converting report: %1%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Engineer&apos;s Notes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downstream</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upstream</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Observation [mDesignator%1]:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Photo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>external_control</name>
    <message>
        <source>Error:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to connect to ostra app</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ostra App Stopped Responding Please Check Your Connection</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>menuDialog</name>
    <message>
        <source>Up/Down: choose   OK: select   ESC: back</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>settingsnetwork</name>
    <message>
        <source>Wi-Fi Networks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connecting to %1...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Wi-Fi adapter found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected to %1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter Password:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please Try Again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK: join the network   R: scan again   D: disconnect   S: %1 password   PgUp/PgDn: tabs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>wcsectioninfopage2</name>
    <message>
        <source>WinCan Additional Section Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key to save, ESC to exit, Page Up - previous, Page Down - next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drainage Area</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contractor&apos;s Job Ref</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Construction Year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exp. Length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit Length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Critical Drain/Sewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Location</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Weather</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspection Method</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flow Control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lining Material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lining Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Section Info Pressed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Is Section Info Complete?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>wrcruninfo</name>
    <message>
        <source>Asbestos Cement (AC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bitumen (BL)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cast Iron (CI)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cement Mortar (CL)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Concrete (CO)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Concrete Segments (CS)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ductile Iron (DI)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Epoxy (EP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fibre Cement (FC)</source>
        <translation>Fiber Cement (FC)</translation>
    </message>
    <message>
        <source>Fibre Reinforced Plastics (FRP)</source>
        <translation>Fiber Reinforced Plastics (FRP)</translation>
    </message>
    <message>
        <source>Grey Cast Iron (GI)</source>
        <translation>Gray Cast Iron (GI)</translation>
    </message>
    <message>
        <source>Masonry - in regular courses (MAC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Masonry - randomly coursed (MAR)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mixed Material Construction (MX)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Polyvinyl Chloride (PVC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Polyethylene (PE)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch Fibre (PF)</source>
        <translation>Pitch Fiber (PF)</translation>
    </message>
    <message>
        <source>Polypropylene (PP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Polyester (PS)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reinforced Concrete (RC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sprayed Concrete (SPC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Steel (ST)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vitrified Clay (VC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unidentified Material (X)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unidentified Type of Iron or Steel (XI)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unidentified Type of Plastics (XP)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other (Z)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown (Z)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspection Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key to save, ESC to exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invert Depth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End Depth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pipeline Ref.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upstream (U)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downstream (D)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Combined (C)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Foul (F)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Storm (S)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trade Effluent (T)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Culverted Watercourse (W)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subsoil or Field Drainage (LD)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Method of Inspection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Direct Inspection (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CCTV (B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspection from Manhole or Inspection Chamber (C)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pre-Cleaned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes (Y)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No (N)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pipe Shape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arched (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Barrel (B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Circular (C)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Egg Shaped (E)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Horseshoe (H)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Oval (O)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rectangular (R)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trapezoidal (T)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>U-Shaped with Flat Top (U)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kerb Block (K)</source>
        <translation>Curb Block (K)</translation>
    </message>
    <message>
        <source>Circular with Smaller Channel (CSC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rectangular with Smaller Channel (RSC)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gravity Drain (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rising Main (B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vacuum (V)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flow Control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None (N)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flows Blocked Upstream (BL)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flows Partially Blocked (PB)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other (X)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brick (BR)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lining Material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brick (BL)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comments</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Inspection Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Would you like to save and continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size (in)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>wrcsiteinfo</name>
    <message>
        <source>Project Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key to save, ESC to exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Street Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Town/Village</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Post Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Client</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contractor Email</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reason For Survey</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drawing Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parking Restrictions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Weather</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No rain or snow (D)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rain (R)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Melting snow or ice (S)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Project Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Would you like to save and continue?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
