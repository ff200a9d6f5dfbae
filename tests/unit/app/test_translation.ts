<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>HomePage</name>
    <message>
        <source>Uninstall</source>
        <translation>translated</translation>
    </message>
</context>
</TS>
