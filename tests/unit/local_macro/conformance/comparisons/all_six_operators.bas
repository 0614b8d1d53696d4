' Less, equal and greater on the three orders of two numbers; the signs of <= and >= may change places.
'> < True False False
'> <= True True False
'> = False True False
'> >= False True True
'> > False False True
'> <> True False True
'> =< True True False
'> => False True True
Sub main()
    Debug.Print "< " & (1 < 2) & " " & (2 < 2) & " " & (3 < 2)
    Debug.Print "<= " & (1 <= 2) & " " & (2 <= 2) & " " & (3 <= 2)
    Debug.Print "= " & (1 = 2) & " " & (2 = 2) & " " & (3 = 2)
    Debug.Print ">= " & (1 >= 2) & " " & (2 >= 2) & " " & (3 >= 2)
    Debug.Print "> " & (1 > 2) & " " & (2 > 2) & " " & (3 > 2)
    Debug.Print "<> " & (1 <> 2) & " " & (2 <> 2) & " " & (3 <> 2)
    Debug.Print "=< " & (1 =< 2) & " " & (2 =< 2) & " " & (3 =< 2)
    Debug.Print "=> " & (1 => 2) & " " & (2 => 2) & " " & (3 => 2)
End Sub
