' &H0 to &HFFFF are the sixteen bits of an Integer; leading zeros don't count.
'> Integer 255
'> Integer 32767
'> Integer -32768
'> Integer -1
'> Integer -1
Sub main()
    Debug.Print TypeName(&HFF) & " " & &HFF
    Debug.Print TypeName(&H7FFF) & " " & &H7FFF
    Debug.Print TypeName(&H8000) & " " & &H8000
    Debug.Print TypeName(&HFFFF) & " " & &HFFFF
    Debug.Print TypeName(&H0000ffff) & " " & &H0000ffff
End Sub
