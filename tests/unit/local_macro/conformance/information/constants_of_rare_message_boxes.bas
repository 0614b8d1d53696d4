' The constants of message boxes that are rarely used.
'> 0 4096 16384 65536 524288 1048576
'> 4 8 16 32
Sub main()
    Debug.Print vbApplicationModal & " " & vbSystemModal & " " & vbMsgBoxHelpButton & " " & vbMsgBoxSetForeground & " " & _
        vbMsgBoxRight & " " & vbMsgBoxRtlReading
    Debug.Print vbWide & " " & vbNarrow & " " & vbKatakana & " " & vbHiragana
End Sub
