<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- Only what the key does not say by itself: symbolic keys and plural forms. -->
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Calmora</name>
    <message numerus="yes">
        <source>apps_running_count %lld</source>
        <translation>
            <numerusform>%lld app running</numerusform>
            <numerusform>%lld apps running</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_notification %@ %lld</source>
        <translation>
            <numerusform>%@ was quit after %lld minute without use.</numerusform>
            <numerusform>%@ was quit after %lld minutes without use.</numerusform>
        </translation>
    </message>
    <message>
        <source>version_label %@</source>
        <translation>Version %@</translation>
    </message>
</context>
</TS>
