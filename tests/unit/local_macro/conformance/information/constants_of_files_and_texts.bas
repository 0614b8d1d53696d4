' The constants of file attributes, of StrConv and of FormatDateTime.
'> 0 1 2 4 8 16 32
'> 1 2 3 64 128
'> 0 1 2 3 4
Sub main()
    Debug.Print vbNormal & " " & vbReadOnly & " " & vbHidden & " " & vbSystem & " " & vbVolume & " " & vbDirectory & " " & _
        vbArchive
    Debug.Print vbUpperCase & " " & vbLowerCase & " " & vbProperCase & " " & vbUnicode & " " & vbFromUnicode
    Debug.Print vbGeneralDate & " " & vbLongDate & " " & vbShortDate & " " & vbLongTime & " " & vbShortTime
End Sub
