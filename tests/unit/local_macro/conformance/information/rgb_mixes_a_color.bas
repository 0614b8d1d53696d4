' RGB puts red into the low byte; parts beyond 255 count as 255, negative ones are error 5.
'> 255 65280 16711680 16777215 255
'! 5 Invalid procedure call or argument
Sub main()
    Debug.Print RGB(255, 0, 0) & " " & RGB(0, 255, 0) & " " & RGB(0, 0, 255) & " " & RGB(255, 255, 255) & " " & RGB(300, 0, 0)
    x = RGB(-1, 0, 0)
End Sub
