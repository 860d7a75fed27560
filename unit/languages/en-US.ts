<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
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
        <source>SD</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>µSD</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSD</source>
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
        <source>USB3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>INT</source>
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
</context>
<context>
    <name>MessageDialog</name>
    <message>
        <source>OK: continue</source>
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
    <name>Splash</name>
    <message>
        <source>Loading...</source>
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
    <name>menuDialog</name>
    <message>
        <source>Up/Down: choose   OK: select   ESC: back</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
