' Every number but zero is True.
'> True True True False False
Sub main()
    Debug.Print CBool(1) & " " & CBool(-0.001) & " " & CBool(0.0001@) & " " & CBool(0) & " " & CBool(#12:00:00 AM#)
End Sub
