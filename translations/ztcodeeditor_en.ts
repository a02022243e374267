<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>TZtCodeEdit</name>
    <message numerus="yes">
        <source>%n occurrence(s) replaced.</source>
        <translation>
            <numerusform>%n occurrence replaced.</numerusform>
            <numerusform>%n occurrences replaced.</numerusform>
        </translation>
    </message>
</context>
</TS>
