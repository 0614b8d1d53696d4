'>  5 -1  2  2.5  3 
'>  1  0  1 
'> True
Sub main()
    Debug.Print Abs(-5); Sgn(-3); Sqr(4); Abs(-2.5); Fix(3.9)
    Debug.Print Exp(0); Log(1); Cos(0)
    x = Rnd
    Debug.Print x >= 0 And x < 1
End Sub
