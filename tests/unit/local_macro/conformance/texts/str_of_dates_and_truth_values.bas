' What is no number has no place for a sign.
'> [True] [3/8/2026] [ 5] [ 5]
Sub main()
    Debug.Print "[" & Str(True) & "] [" & Str(#3/8/2026#) & "] [" & Str(5@) & "] [" & Str(CByte(5)) & "]"
End Sub
