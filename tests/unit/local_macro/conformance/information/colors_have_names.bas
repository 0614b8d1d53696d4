' Eight colors have constants.
'> 0 255 65280 65535 16711680 16711935 16776960 16777215
Sub main()
    Debug.Print vbBlack & " " & vbRed & " " & vbGreen & " " & vbYellow & " " & vbBlue & " " & vbMagenta & " " & vbCyan & _
        " " & vbWhite
End Sub
