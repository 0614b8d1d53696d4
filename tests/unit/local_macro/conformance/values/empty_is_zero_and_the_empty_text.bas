' A Variant that was never assigned counts as 0 among numbers and as "" among texts.
'> True True True
'> 1 [a]
'> False
Sub main()
    Dim v
    Debug.Print (v = 0) & " " & (v = "") & " " & (v = False)
    Debug.Print (v + 1) & " [" & v & "a]"
    Debug.Print IsNull(v)
End Sub
